// paths.h - file names, with the host's separator. Only texts, except for the functions that say that they
// access the disk.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

inline constexpr char kPathSeparator = '/';

bool IsAbsolutePath(std::string_view path);

/// dir and name with one separator between them. An absolute name is appended to dir like any other; an empty
/// dir or an empty name gives the other one.
std::string JoinPath(std::string_view dir, std::string_view name);

/// As JoinPath, but an absolute name stays as it is.
std::string JoinUnlessAbsolute(std::string_view dir, std::string_view name);

/// Text after the last separator; all of it without one.
std::string FileNameOf(std::string_view path);

/// Text up to and with the last separator; "" without one.
std::string DirectoryOf(std::string_view path);

/// Ends with the separator: added where it is missing, also to an empty text.
std::string WithClosingSeparator(std::string_view dir);

/// Working folder of the process, without closing separator; "." if it is unknown. Asks the system.
std::string CurrentDirectory();

/// Whether a text is only the name of a file: not empty, no separator, neither "." nor "..".
bool IsPlainFileName(std::string_view name);

/// Whether something other than a folder exists under this name (links followed). Accesses the disk.
bool FileExists(const std::string& path);

/// Whether something exists under this name, or may exist: false only if the disk says that there is nothing.
/// Accesses the disk.
bool MayExist(const std::string& path);

/// Whether a folder exists. Accesses the disk.
bool DirectoryExists(const std::string& path);

/// The name after following the symbolic links of `path`, which need not exist. Accesses the disk. False with
/// errno after too many links.
bool FollowLinks(std::string path, std::string& target);

}  // namespace sondera
