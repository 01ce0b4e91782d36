#pragma once

#include <string>

namespace tarvo::acceptance {

/// Files by their 8-bit paths, whole and as bytes. What cannot be done is told as `DidNotHold`.

std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::string& bytes);
void CopyTo(const std::string& from, const std::string& to);
bool Exists(const std::string& path);
/// The folder with everything in it; as much as can be removed.
void RemoveTree(const std::string& folder);
/// The name of a file that fits the pattern; none is an empty text.
std::string FindName(const std::string& pattern);

/// The folder of this program, which holds the launcher and the servers.
std::string OwnFolder();
/// A path in it, or in its folder "servers".
std::string Beside(const std::string& name);

/// `text` in which `from` stands once, with `to` for it.
std::string Replaced(std::string text, const std::string& from, const std::string& to);

}  // namespace tarvo::acceptance
