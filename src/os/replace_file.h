// State files rewritten whole: the new content goes to a temporary file in
// the same folder, which then takes the file's name in one rename, so a
// process killed while writing leaves the old file or the new one, never a
// torn one.
#pragma once

#include <climits>
#include <cstdio>

namespace gv::os {

class FileReplacement {
  public:
    FileReplacement() = default;
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;
    // Drops the temporary file unless commit() has put it in place.
    ~FileReplacement();

    // Starts the new content of path (re-rooted like open_stream); null when
    // its folder takes no temporary file.
    std::FILE *begin(const char *path) noexcept;
    // Writes the content out to the disk and renames it over the file;
    // false (the old file untouched) when any step fails.
    bool commit() noexcept;

  private:
    void abandon() noexcept;

    std::FILE *stream_ = nullptr;
    char target_[PATH_MAX] = {};
    char temporary_[PATH_MAX] = {};
};

} // namespace gv::os
