#pragma once

namespace tarvo::acceptance {

class Desk;

void FirstRun(Desk& desk);
void SettingsKept(Desk& desk);
void StartStop(Desk& desk);
void RefusesToDie(Desk& desk);
void NoNumbers(Desk& desk);
void StartRefused(Desk& desk);
void LogFile(Desk& desk);

void CrashRestart(Desk& desk);
void ServerFault(Desk& desk);
void DiesAtStart(Desk& desk);
void ConsoleServer(Desk& desk);

void FreezeKilled(Desk& desk);
void FreezeReturns(Desk& desk);
void FreezeQueueFull(Desk& desk);
void LateListener(Desk& desk);
void SilentAddress(Desk& desk);

void AutoStart(Desk& desk);
void UnloadAndAdopt(Desk& desk);
void SecondLauncher(Desk& desk);
void StartMinimized(Desk& desk);

void StartUpEntry(Desk& desk);
void TrayIcon(Desk& desk);
void PagesByKeyboard(Desk& desk);
void TextsWhole(Desk& desk);
void HighContrast(Desk& desk);

void RandomizerNow(Desk& desk);
void RandomizerMapStart(Desk& desk);
void RandomizerCalendar(Desk& desk);

void UpgradeByHand(Desk& desk);
void UpgradeOnCrash(Desk& desk);
void UpgradeHeld(Desk& desk);

}  // namespace tarvo::acceptance
