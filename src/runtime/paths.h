// paths.h - file names, by the host's separator. Texts only, but for the functions that say that they look.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

inline constexpr char kPathSeparator = '/';

bool IsAbsolutePath(std::string_view path);

/// dir and name with one separator between them. An absolute name is put behind dir like any other; an empty
/// dir or an empty name gives the other one.
std::string JoinPath(std::string_view dir, std::string_view name);

/// As JoinPath, but an absolute name stays as it is.
std::string JoinUnlessAbsolute(std::string_view dir, std::string_view name);

/// Text behind the last separator; all of it without one.
std::string FileNameOf(std::string_view path);

/// Text up to and with the last separator; "" without one.
std::string DirectoryOf(std::string_view path);

/// Ends with the separator: added where it is missing, also to an empty text.
std::string WithClosingSeparator(std::string_view dir);

/// Folder the process works in, without closing separator; "." if it cannot be told. Looks at the system.
std::string CurrentDirectory();

/// Whether a text is the name of a file and nothing more: not empty, no separator, neither "." nor "..".
bool IsPlainFileName(std::string_view name);

/// Whether something other than a folder stands there under this name (links followed). Looks at the disk.
bool FileExists(const std::string& path);

/// Whether something stands there, or may: false only where the disk says that there is nothing. Looks at the
/// disk.
bool MayExist(const std::string& path);

/// Whether a folder stands there. Looks at the disk.
bool DirectoryExists(const std::string& path);

/// The name behind the symbolic links of `path`, which need not exist. Looks at the disk. False with errno
/// after too many links.
bool FollowLinks(std::string path, std::string& target);

}  // namespace sondera
