// paths.cpp - see paths.h.
#include "runtime/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace sondera {
namespace {

constexpr int kMostLinks = 40;  // consecutive symbolic links, as the kernel allows

}  // namespace

bool IsAbsolutePath(std::string_view path) {
  return !path.empty() && path.front() == kPathSeparator;
}

std::string JoinPath(std::string_view dir, std::string_view name) {
  if (dir.empty()) return std::string(name);
  std::string path(dir);
  if (name.empty()) return path;
  if (path.back() != kPathSeparator) path += kPathSeparator;
  path += name.substr(name.front() == kPathSeparator ? 1 : 0);
  return path;
}

std::string JoinUnlessAbsolute(std::string_view dir, std::string_view name) {
  return IsAbsolutePath(name) ? std::string(name) : JoinPath(dir, name);
}

std::string FileNameOf(std::string_view path) {
  const std::size_t at = path.rfind(kPathSeparator);
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string DirectoryOf(std::string_view path) {
  const std::size_t at = path.rfind(kPathSeparator);
  return std::string(at == std::string_view::npos ? std::string_view() : path.substr(0, at + 1));
}

std::string WithClosingSeparator(std::string_view dir) {
  std::string path(dir);
  if (path.empty() || path.back() != kPathSeparator) path += kPathSeparator;
  return path;
}

bool IsPlainFileName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find(kPathSeparator) == std::string_view::npos;
}

std::string CurrentDirectory() {
  std::error_code error;
  const std::filesystem::path here = std::filesystem::current_path(error);
  return error ? "." : here.string();
}

bool FileExists(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

bool MayExist(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

bool DirectoryExists(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool FollowLinks(std::string path, std::string& target) {
  char text[4096];
  for (int i = 0; i < kMostLinks; ++i) {
    const ssize_t n = ::readlink(path.c_str(), text, sizeof text);
    if (n < 0 || n == static_cast<ssize_t>(sizeof text)) {  // no link, or one longer than any path
      target = path;
      return true;
    }
    path = JoinUnlessAbsolute(DirectoryOf(path), std::string_view(text, static_cast<std::size_t>(n)));
  }
  errno = ELOOP;
  return false;
}

}  // namespace sondera
