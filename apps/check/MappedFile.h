#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace quillmar::check {

/// A regular file's bytes mapped read-only into memory, so that checking them copies nothing. The pages a
/// check is done with are given back as it goes, so the memory in use stays bounded by the chunks in
/// flight, whatever the file's length. A file that shrinks while it is mapped would end the process at the
/// first read past its new end; here such a page reads as zeros instead, and `Shrank` tells it, so the check
/// stops with a fault.
class MappedFile {
public:
    /// Maps the open file `descriptor`, which must stay open while the mapping lives; null where it cannot
    /// be mapped (not a regular file, empty, or the system refuses), which the caller then reads as a stream.
    [[nodiscard]] static std::unique_ptr<MappedFile> Map(int descriptor);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// The file's bytes as they were when it was mapped.
    [[nodiscard]] std::string_view Bytes() const noexcept { return { m_data, m_size }; }
    /// Gives back the memory of the pages before `offset`, in steps of a few megabytes: the bytes before it
    /// are not read again.
    void Release(size_t offset) noexcept;
    /// True once the file is shorter than it was when it was mapped: a read past its new end gave zeros,
    /// and so did one past it within its last page, which the system fills with zeros unasked. Asked after
    /// a read, it tells whether what was read was the file's.
    [[nodiscard]] bool Shrank() const noexcept;

private:
    MappedFile(const char* data, size_t size, size_t slot, int descriptor) noexcept;

    const char* m_data;
    size_t m_size;
    size_t m_slot; // where the bus-error handler finds the mapping
    int m_descriptor;
    size_t m_released = 0;
};

} // namespace quillmar::check
