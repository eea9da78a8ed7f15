#pragma once
// Files held in memory, for the benchmarks and the fuzzer: the race file is read from and
// written to a map instead of the disk, through the same steps as on a disk.

#include <map>
#include <string>
#include <string_view>

#include "model/app_error.h"
#include "model/ports.h"

namespace tt::bench {

class MemoryFileSystem : public FileSystemPort {
  public:
    std::map<std::string, std::string, std::less<>> files;

    std::string ReadAll(const std::string& path, std::uint64_t limit) override {
        const std::string& data = Find(path);
        if (data.size() > limit) throw AppError(kErrOutOfMemory);
        return data;
    }
    void Append(const std::string& path, std::string_view data) override {
        files[path].append(data);
    }
    FileKind Kind(const std::string& path) override {
        return files.count(path) ? FileKind::kRegular : FileKind::kMissing;
    }
    std::string Target(const std::string& path) override { return path; }
    std::string CreateTemporary(const std::string& beside) override {
        std::string name = beside + ".tmp" + std::to_string(++made_);
        files[name];
        return name;
    }
    void WriteDurably(const std::string& temporary, std::string_view data,
                      const std::string&) override {
        files[temporary].assign(data);
    }
    std::string LinkTemporary(const std::string& from, const std::string& beside) override {
        std::string name = beside + ".tmp" + std::to_string(++made_);
        files[name] = Find(from);
        return name;
    }
    void Rename(const std::string& from, const std::string& to) override {
        auto it = files.find(from);
        if (it == files.end()) throw AppError(kErrFileNotFound);
        std::string moved = std::move(it->second);
        files.erase(it);
        files[to] = std::move(moved);
    }
    void Remove(const std::string& path) override {
        if (files.erase(path) == 0) throw AppError(kErrFileNotFound);
    }
    void SyncFolder(const std::string&) override {}

  private:
    const std::string& Find(const std::string& path) const {
        auto it = files.find(path);
        if (it == files.end()) throw AppError(kErrFileNotFound);
        return it->second;
    }
    int made_ = 0;
};

}  // namespace tt::bench
