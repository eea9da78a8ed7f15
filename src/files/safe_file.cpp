#include "files/safe_file.h"

#include "model/app_error.h"
#include "model/ports.h"

namespace tt {

namespace {

std::string FolderOf(const std::string& path) {
    std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string(".") : path.substr(0, slash + 1);
}

}  // namespace

void ReplaceFileContents(const std::string& path, std::string_view data) {
    FileReplacement file(path);
    file.Stage(data);
    file.Commit();
}

FileReplacement::FileReplacement(const std::string& path) {
    if (path.empty()) throw AppError(kErrFileNotFound);
    path_ = Files().Target(path);
    switch (Files().Kind(path_)) {
        case FileKind::kMissing:
            break;
        case FileKind::kRegular:
            hasOld_ = true;
            break;
        case FileKind::kOther:
            throw AppError(kErrPathFileAccess);
    }
}

FileReplacement::~FileReplacement() {
    Discard(staged_);
    Discard(kept_);
}

void FileReplacement::Discard(std::string& temporary) {
    if (temporary.empty()) return;
    try {
        Files().Remove(temporary);
    } catch (const std::exception&) {
        // Nothing more can be done; the temporary's name tells what it was.
    }
    temporary.clear();
}

void FileReplacement::Stage(std::string_view data) {
    Discard(staged_);
    staged_ = Files().CreateTemporary(path_);
    Files().WriteDurably(staged_, data, path_);
}

void FileReplacement::KeepOldAs(const std::string& backup) {
    Discard(kept_);
    backup_.clear();
    if (!hasOld_) return;
    const std::string target = Files().Target(backup);
    if (target == path_) return;  // the file is its own backup name: nothing to keep apart
    if (Files().Kind(target) == FileKind::kOther) throw AppError(kErrPathFileAccess);
    try {
        kept_ = Files().LinkTemporary(path_, target);
    } catch (const std::exception&) {
        // No links on this disk or across disks: a copy does as well.
        try {
            const std::string old = Files().ReadAll(path_);
            kept_ = Files().CreateTemporary(target);
            Files().WriteDurably(kept_, old, path_);
        } catch (const std::exception&) {
            Discard(kept_);
            throw;
        }
    }
    backup_ = target;
}

void FileReplacement::Commit() {
    if (staged_.empty()) throw AppError(kErrInvalidCall);
    Files().Rename(staged_, path_);
    staged_.clear();
    if (!kept_.empty()) {
        try {
            Files().Rename(kept_, backup_);
        } catch (const std::exception&) {
            // The old file goes back to the path, where it was, and the backup stays as it was.
            try {
                Files().Rename(kept_, path_);
                kept_.clear();
            } catch (const std::exception&) {
            }
            throw;
        }
        kept_.clear();
    }
    Files().SyncFolder(path_);
    if (!backup_.empty() && FolderOf(backup_) != FolderOf(path_)) Files().SyncFolder(backup_);
}

}  // namespace tt
