#include "model/tables.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace tt {

namespace {

std::size_t PageSize() {
    static const std::size_t size = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    return size;
}

std::size_t RoundUp(std::size_t bytes) {
    const std::size_t page = PageSize();
    return (bytes + page - 1) / page * page;
}

}  // namespace

std::size_t ResidentBytes() {
    // Kept open: the reader asks often while a file loads.
    static const int fd = ::open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (fd < 0) return 0;
    char text[128];
    const ssize_t n = ::pread(fd, text, sizeof text - 1, 0);
    if (n <= 0) return 0;
    text[n] = '\0';
    unsigned long size = 0, resident = 0;
    if (std::sscanf(text, "%lu %lu", &size, &resident) != 2) return 0;
    return resident * PageSize();
}

void ZeroedSpan::Reserve(std::size_t bytes) {
    bytes = RoundUp(bytes);
    if (bytes <= size_) return;
    void* p;
    if (!data_) {
        p = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    } else {
        // The pages move as they are, written or not, without a copy.
        p = ::mremap(data_, size_, bytes, MREMAP_MAYMOVE);
    }
    if (p == MAP_FAILED) Raise(kErrOutOfMemory);
    data_ = static_cast<char*>(p);
    size_ = bytes;
}

void ZeroedSpan::Zero(std::size_t from, std::size_t to) {
    to = std::min(to, size_);
    if (from >= to) return;
    const std::size_t page = PageSize();
    const std::size_t first = std::min((from + page - 1) / page * page, to);
    const std::size_t last = std::max(to / page * page, first);
    std::memset(data_ + from, 0, first - from);
    std::memset(data_ + last, 0, to - last);
    if (first == last) return;
    // Pages in memory are cleared in place, to be written again without a fault; the others
    // were never written, or went back to the system, and read as zero already.
    std::vector<unsigned char> resident((last - first) / page);
    if (::mincore(data_ + first, last - first, resident.data()) != 0) {
        ::madvise(data_ + first, last - first, MADV_DONTNEED);
        return;
    }
    for (std::size_t i = 0; i < resident.size();) {
        std::size_t j = i;
        while (j < resident.size() && (resident[j] & 1) == (resident[i] & 1)) ++j;
        if (resident[i] & 1) std::memset(data_ + first + i * page, 0, (j - i) * page);
        i = j;
    }
}

void ZeroedSpan::Release() {
    if (data_) ::munmap(data_, size_);
    data_ = nullptr;
    size_ = 0;
}

}  // namespace tt
