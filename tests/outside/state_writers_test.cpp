#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "outside/state_report.h"

namespace tarvo {
namespace {

LocalTime At(const std::string& clock) { return ParseDateTime("2026-11-21 " + clock); }

StateReport QuietReport() {
  StateReport report;
  report.version = "1.0.0";
  report.root = "C:\\srv \xD1";
  report.serverName = "North \"wind\"";
  report.now = At("10:02:00");
  report.started = {At("10:00:00"), 120};
  report.freeMemory = 1572864000;
  report.totalMemory = 4194304000;
  report.lastUpgrade = "n/a";
  const std::int32_t ports[] = {6900, 6121, 5121};
  for (ComponentKind kind : kComponents) {
    report.components[kind].since = {At("10:00:00"), 120};
    report.components[kind].endpoint = {" 127.0.0.1 ", ports[IndexOf(kind)]};
  }
  return report;
}

StateReport BusyReport() {
  StateReport report = QuietReport();
  report.statusCode = 3;
  report.nextCalendarEntry = CalendarMoment{At("10:05:00"), true};
  report.lastUpgrade = "2026-11-20 09:00:00";
  report.openBox = "Please,\r\nstop";
  ComponentReport& login = report.components[ComponentKind::Login];
  login.state = ComponentState::Listening;
  login.since = {At("10:00:03"), 117};
  login.listeningSince = login.since;
  login.processId = 1204;
  login.memory = 58825114;
  login.probed = true;
  login.alarm = AlarmState::Healthy;
  ComponentReport& map = report.components[ComponentKind::Map];
  map.state = ComponentState::Frozen;
  map.processId = 77;
  map.probed = true;
  map.alarm = AlarmState::Trouble;
  map.restarts = {{2, 1, 0}};
  map.lastFailure = FailureReport{RestartCause::Freeze, {At("10:01:30"), 30}};
  map.probeFailure = "127.0.0.1:5121: refused";
  return report;
}

/// Page 1252, as far as these texts go.
std::string Converted(const std::string& text) {
  std::string utf8;
  for (const char c : text) {
    if (c == '\xD1') utf8 += "\xC3\x91";
    if (c != '\xD1') utf8 += c;
  }
  return utf8;
}

TEST(StateWritersTest, TextForPeople) {
  EXPECT_EQ(StateAsText(QuietReport()),
            "Tarvo Launcher v.1.0.0 in C:\\srv \xD1 [North \"wind\"], since 2026-11-21 10:00:00\n"
            "Login: stopped since 2026-11-21 10:00:00, no restarts, at 127.0.0.1:6900\n"
            "Char: stopped since 2026-11-21 10:00:00, no restarts, at 127.0.0.1:6121\n"
            "Map: stopped since 2026-11-21 10:00:00, no restarts, at 127.0.0.1:5121\n"
            "Free memory: 1,500.0 MB of 4,000.0 MB\n"
            "Status code: 8\n"
            "Next calendar entry: none\n"
            "Last upgrade: n/a\n");
  EXPECT_EQ(StateAsText(BusyReport()),
            "Tarvo Launcher v.1.0.0 in C:\\srv \xD1 [North \"wind\"], since 2026-11-21 10:00:00\n"
            "Login: listening since 2026-11-21 10:00:03, process 1204, 56.1 MB, no restarts, at "
            "127.0.0.1:6900\n"
            "Char: stopped since 2026-11-21 10:00:00, no restarts, at 127.0.0.1:6121\n"
            "Map: frozen since 2026-11-21 10:00:00, process 77, 3 restarts (2 crash, 1 freeze), at "
            "127.0.0.1:5121, last failure (freeze) 2026-11-21 10:01:30. 127.0.0.1:5121: refused\n"
            "Free memory: 1,500.0 MB of 4,000.0 MB\n"
            "Status code: 3\n"
            "Next calendar entry: 2026-11-21 10:05:00, with restart\n"
            "Last upgrade: 2026-11-20 09:00:00\n"
            "Message box open: Please,  stop\n");
}

constexpr char kStoppedLogin[] =
    R"("login":{"state":"stopped","since":"2026-11-21T10:00:00","since_seconds":120,)"
    R"("alarm":"not watched","process_id":null,"memory_bytes":null,"host":"127.0.0.1",)"
    R"("port":6900,"listening":false,"probed":false,"listening_since":null,)"
    R"("listening_since_seconds":null,"restarts":{"crash":0,"freeze":0,"other":0},)"
    R"("last_failure":null,"probe_failure":null},)";

// The fields' names and their order are what other programs rely on.
TEST(StateWritersTest, JsonHasAllFieldsAtAllTimes) {
  const std::string quiet = StateAsJson(QuietReport(), Converted);
  EXPECT_TRUE(
      quiet.starts_with(R"({"format":1,"version":"1.0.0","root":"C:\\srv )"
                        "\xC3\x91"
                        R"(","server_name":"North \"wind\"","time":"2026-11-21T10:02:00",)"
                        R"("started":"2026-11-21T10:00:00","started_seconds":120,"components":{)"))
      << quiet;
  EXPECT_NE(quiet.find(kStoppedLogin), std::string::npos) << quiet;
  EXPECT_TRUE(quiet.ends_with(
      R"(}},"free_memory_bytes":1572864000,"total_memory_bytes":4194304000,"status_code":8,)"
      R"("next_calendar_entry":null,"last_upgrade":null,"message_box":null})"
      "\n"))
      << quiet;
}

TEST(StateWritersTest, JsonOfAMachineWhereMuchHappens) {
  const std::string busy = StateAsJson(BusyReport(), Converted);
  for (const char* part :
       {R"("login":{"state":"listening","since":"2026-11-21T10:00:03","since_seconds":117,)"
        R"("alarm":"healthy","process_id":1204,"memory_bytes":58825114,)",
        R"("listening":true,"probed":true,"listening_since":"2026-11-21T10:00:03",)"
        R"("listening_since_seconds":117,)",
        R"("restarts":{"crash":2,"freeze":1,"other":0},"last_failure":{"cause":"freeze",)"
        R"("at":"2026-11-21T10:01:30","at_seconds":30},"probe_failure":"127.0.0.1:5121: refused"})",
        R"("next_calendar_entry":{"at":"2026-11-21T10:05:00","in_seconds":180,"restarts":true},)"
        R"("last_upgrade":"2026-11-20 09:00:00","message_box":"Please,\u000d\u000astop"})"}) {
    EXPECT_NE(busy.find(part), std::string::npos) << part << "\n" << busy;
  }
}

TEST(StateWritersTest, JsonIsReadBackByAKnownParser) {
  StateReport report = BusyReport();
  report.serverName = "\"\\\n\x01\xFF";
  const auto read = nlohmann::json::parse(StateAsJson(report, Converted));
  EXPECT_EQ(read["server_name"], "\"\\\n\x01\xEF\xBF\xBD");
  EXPECT_EQ(read["root"], "C:\\srv \xC3\x91");
  EXPECT_EQ(read["components"]["map"]["restarts"]["crash"], 2);
  EXPECT_EQ(read["components"]["map"]["last_failure"]["at_seconds"], 30);
  EXPECT_EQ(read["components"]["login"]["memory_bytes"], 58825114);
  EXPECT_TRUE(read["components"]["char"]["listening_since"].is_null());
  EXPECT_EQ(read["components"].size(), kComponentCount);
}

TEST(StateWritersTest, PrometheusSamplesWithTheirHelpAndType) {
  const std::string text = StateAsPrometheus(BusyReport(), Converted);
  for (const char* part :
       {"# HELP tarvo_launcher_info Always 1; its labels tell the launcher.\n"
        "# TYPE tarvo_launcher_info gauge\n"
        "tarvo_launcher_info{version=\"1.0.0\",root=\"C:\\\\srv \xC3\x91\","
        "server_name=\"North \\\"wind\\\"\"} 1\n",
        "tarvo_launcher_uptime_seconds 120\n", "tarvo_launcher_message_box_open 1\n",
        "tarvo_memory_free_bytes 1572864000\n", "tarvo_calendar_next_entry_seconds 180\n",
        "tarvo_component_state{component=\"map\",state=\"frozen\"} 1\n",
        "tarvo_component_state{component=\"map\",state=\"listening\"} 0\n",
        "tarvo_component_state_seconds{component=\"login\"} 117\n",
        "tarvo_component_listening{component=\"login\"} 1\n",
        "tarvo_component_listening{component=\"map\"} 0\n",
        "tarvo_component_listening_seconds{component=\"login\"} 117\n",
        "tarvo_component_probe_failed{component=\"map\"} 1\n",
        "tarvo_component_process_id{component=\"char\"} 0\n",
        "tarvo_component_memory_bytes{component=\"login\"} 58825114\n",
        "# TYPE tarvo_component_restarts_total counter\n",
        "tarvo_component_restarts_total{component=\"map\",cause=\"crash\"} 2\n",
        "tarvo_component_last_failure_age_seconds{component=\"map\"} 30\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
  EXPECT_EQ(text.find("memory_bytes{component=\"char\""), std::string::npos);
}

TEST(StateWritersTest, PrometheusLabelsTakeAnyText) {
  StateReport report = QuietReport();
  report.serverName = "a\nb\\c\xFF";
  const std::string text = StateAsPrometheus(report, [](const std::string& same) { return same; });
  EXPECT_NE(text.find("server_name=\"a\\nb\\\\c\xEF\xBF\xBD\""), std::string::npos) << text;
}

}  // namespace
}  // namespace tarvo
