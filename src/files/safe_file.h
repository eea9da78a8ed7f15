#pragma once
// Rewriting a file without ever losing it. Every file the program rewrites (the race file on
// save, the recovery file when its old records are cleared) goes through here:
//
//   1. the whole new text is in memory before anything is touched;
//   2. it is written to a temporary file in the same folder, which takes the old file's
//      permission bits and is flushed to disk;
//   3. for the race file, the old file gets a second name beside its backup (a hard link, or a
//      flushed copy where links cannot be made), so the old card is never only in one place
//      that is about to change;
//   4. the temporary is renamed over the path, the backup's temporary over the backup name,
//      and the folders are flushed.
//
// Up to the rename in step 4 the path holds the complete old file; after it, the complete new
// one. A failure anywhere before leaves the path and the backup as they were and removes the
// temporaries; a crash leaves at most a temporary beside them, named after the file with a
// "." and six characters and ".tmp" added. Only a regular file (or none) is ever replaced: a
// folder, pipe, socket or device at the path raises the path/file access error at once.

#include <string>
#include <string_view>

namespace tt {

// Replaces the contents of the regular file at path (or creates it) atomically and durably,
// keeping its permission bits. Raises the program's error on failure, leaving the file as it
// was. This is the call for any file the program rewrites whole, such as the recovery file.
void ReplaceFileContents(const std::string& path, std::string_view data);

// The steps of a replacement, for a caller that keeps a backup and asks about it between the
// steps. The destructor removes whatever temporary is left, so an error thrown between the
// steps leaves nothing behind.
class FileReplacement {
  public:
    // Refuses a path that names anything but a regular file or nothing.
    explicit FileReplacement(const std::string& path);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Whether there is an old file to keep.
    bool HasOld() const { return hasOld_; }
    // Writes the new text to the temporary beside the path (steps 1 and 2).
    void Stage(std::string_view data);
    // Gives the old file a second name beside `backup`, to take that name at Commit (step 3).
    // Raises the error of the link, or of the copy that replaces it, leaving the backup as it
    // was.
    void KeepOldAs(const std::string& backup);
    // Puts the new text at the path, and the old one at the backup name when kept (step 4). On
    // an error the path holds the old file again wherever that can be done.
    void Commit();

  private:
    void Discard(std::string& temporary);
    std::string path_;  // symbolic links followed
    bool hasOld_ = false;
    std::string staged_;
    std::string backup_;
    std::string kept_;
};

}  // namespace tt
