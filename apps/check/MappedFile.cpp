#include "apps/check/MappedFile.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <iterator>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar::check {
namespace {

// The mappings the bus-error handler knows, which a signal handler can read without locks. A mapping that
// finds no free place is not made, and its file is read as a stream.
struct Place {
    std::atomic<uintptr_t> begin { 0 };
    std::atomic<uintptr_t> end { 0 };
    std::atomic<bool> shrank { false };
    std::atomic<bool> taken { false };
};
Place g_places[16];
struct sigaction g_previous { };
uintptr_t g_pageSize = 4096;

// A read of a mapped page past the file's end: a page of zeros takes its place, so the read goes on, and the
// mapping is marked. A bus error anywhere else is handled as it would have been without this handler: it is
// put back, and the faulting read, done again, reaches it.
void OnBusError(int, siginfo_t* info, void*) {
    const auto address = reinterpret_cast<uintptr_t>(info->si_addr);
    for (Place& place : g_places) {
        if (address < place.begin.load() || address >= place.end.load()) continue;
        place.shrank.store(true);
        void* page = reinterpret_cast<void*>(address & ~(g_pageSize - 1));
        if (mmap(page, g_pageSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED)
            return;
        break;
    }
    sigaction(SIGBUS, &g_previous, nullptr);
}

bool InstallHandler() {
    g_pageSize = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    struct sigaction action { };
    action.sa_sigaction = OnBusError;
    action.sa_flags = SA_SIGINFO;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGBUS, &action, &g_previous) == 0;
}

} // namespace

std::unique_ptr<MappedFile> MappedFile::Map(int descriptor) {
    static const bool installed = InstallHandler();
    struct stat status { };
    if (!installed || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size <= 0)
        return nullptr;
    const auto size = static_cast<size_t>(status.st_size);
    size_t slot = 0;
    for (bool expected = false; slot < std::size(g_places); ++slot, expected = false)
        if (g_places[slot].taken.compare_exchange_strong(expected, true)) break;
    if (slot == std::size(g_places)) return nullptr;
    void* data = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (data == MAP_FAILED) {
        g_places[slot].taken.store(false);
        return nullptr;
    }
    madvise(data, size, MADV_SEQUENTIAL);
    Place& place = g_places[slot];
    place.shrank.store(false);
    place.end.store(reinterpret_cast<uintptr_t>(data) + size);
    place.begin.store(reinterpret_cast<uintptr_t>(data));
    return std::unique_ptr<MappedFile>(
        new MappedFile(static_cast<const char*>(data), size, slot, descriptor));
}

MappedFile::MappedFile(const char* data, size_t size, size_t slot, int descriptor) noexcept
    : m_data(data)
    , m_size(size)
    , m_slot(slot)
    , m_descriptor(descriptor) { }

MappedFile::~MappedFile() {
    Place& place = g_places[m_slot];
    place.begin.store(0);
    place.end.store(0);
    munmap(const_cast<char*>(m_data), m_size);
    place.taken.store(false);
}

void MappedFile::Release(size_t offset) noexcept {
    // A few large releases rather than one per chunk: each one has every other core that runs a thread of
    // the process drop the pages from its address cache, and one on a boundary of large pages splits none.
    constexpr size_t kStep = size_t { 4 } << 20;
    const size_t upTo = std::min(offset, m_size) & ~(kStep / 2 - 1);
    if (upTo < m_released + kStep) return;
    madvise(const_cast<char*>(m_data) + m_released, upTo - m_released, MADV_DONTNEED);
    m_released = upTo;
}

bool MappedFile::Shrank() const noexcept {
    if (g_places[m_slot].shrank.load()) return true;
    struct stat status { };
    return fstat(m_descriptor, &status) == 0 && static_cast<uint64_t>(status.st_size) < m_size;
}

} // namespace quillmar::check
