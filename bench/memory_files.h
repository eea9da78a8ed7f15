#pragma once
// Files held in memory, for the benchmarks, the fuzzer and the example's generator: the race
// file is read from and written to a map instead of the disk, through the same steps as on a
// disk. A hard link shares the bytes of its file, as on a disk, so a save costs one copy.

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "model/app_error.h"
#include "model/ports.h"

namespace tt::bench {

class MemoryFileSystem : public FileSystemPort {
  public:
    void Put(const std::string& path, std::string bytes) {
        files_[path] = std::make_shared<const std::string>(std::move(bytes));
    }
    const std::string& Get(const std::string& path) const { return Find(path); }
    bool Has(const std::string& path) const { return files_.count(path) != 0; }
    void Clear() { files_.clear(); }
    // Every file with its bytes.
    std::map<std::string, std::string> Snapshot() const {
        std::map<std::string, std::string> all;
        for (const auto& [name, bytes] : files_) all[name] = *bytes;
        return all;
    }

    std::string ReadAll(const std::string& path, std::uint64_t limit) override {
        const std::string& data = Find(path);
        if (data.size() > limit) throw AppError(kErrOutOfMemory);
        return data;
    }
    void Append(const std::string& path, std::string_view data) override {
        auto& file = files_[path];
        std::string grown = file ? *file : std::string();
        grown.append(data);
        file = std::make_shared<const std::string>(std::move(grown));
    }
    FileKind Kind(const std::string& path) override {
        return Has(path) ? FileKind::kRegular : FileKind::kMissing;
    }
    std::string Target(const std::string& path) override { return path; }
    std::string CreateTemporary(const std::string& beside) override {
        std::string name = beside + ".tmp" + std::to_string(++made_);
        Put(name, {});
        return name;
    }
    void WriteDurably(const std::string& temporary, std::string_view data,
                      const std::string&) override {
        Put(temporary, std::string(data));
    }
    std::string LinkTemporary(const std::string& from, const std::string& beside) override {
        Find(from);
        std::string name = beside + ".tmp" + std::to_string(++made_);
        files_[name] = files_.find(from)->second;
        return name;
    }
    void Rename(const std::string& from, const std::string& to) override {
        auto it = files_.find(from);
        if (it == files_.end()) throw AppError(kErrFileNotFound);
        auto moved = std::move(it->second);
        files_.erase(it);
        files_[to] = std::move(moved);
    }
    void Remove(const std::string& path) override {
        if (files_.erase(path) == 0) throw AppError(kErrFileNotFound);
    }
    void SyncFolder(const std::string&) override {}

  private:
    const std::string& Find(const std::string& path) const {
        auto it = files_.find(path);
        if (it == files_.end()) throw AppError(kErrFileNotFound);
        return *it->second;
    }
    std::map<std::string, std::shared_ptr<const std::string>, std::less<>> files_;
    int made_ = 0;
};

}  // namespace tt::bench
