#pragma once
// Files held in memory, for the benchmarks and the fuzzer: the race file is read from and
// written to a map instead of the disk.

#include <map>
#include <string>
#include <string_view>

#include "model/app_error.h"
#include "model/ports.h"

namespace tt::bench {

class MemoryFileSystem : public FileSystemPort {
  public:
    std::map<std::string, std::string, std::less<>> files;

    std::string ReadAll(const std::string& path) override { return Find(path); }
    void WriteAll(const std::string& path, std::string_view data) override {
        files[path].assign(data);
    }
    void Append(const std::string& path, std::string_view data) override {
        files[path].append(data);
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

  private:
    const std::string& Find(const std::string& path) const {
        auto it = files.find(path);
        if (it == files.end()) throw AppError(kErrFileNotFound);
        return it->second;
    }
};

}  // namespace tt::bench
