#include "apps/check/CsvSource.h"

#include "apps/check/CsvChunk.h"
#include "apps/check/RecordSplit.h"

#include <cerrno>
#include <cstring>
#include <memory>

namespace quillmar::check {
namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The bytes after a UTF-8 byte-order mark, if the text starts with one.
std::string_view AfterByteOrderMark(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return bytes;
}

// Reads blocks into `buffer` until it holds a whole first record (the byte-order mark is no part of it) or
// the file ends; false on a read error.
bool ReadUntilHeader(std::FILE* file, std::string& buffer, size_t block, bool& atEnd) {
    while (
        !atEnd && FirstRecord(AfterByteOrderMark(buffer)).length == 0 && buffer.size() <= kMaxRecordBytes) {
        const size_t size = buffer.size();
        buffer.resize(size + block);
        const size_t read = std::fread(buffer.data() + size, 1, block, file);
        buffer.resize(size + read);
        if (read < block) {
            if (std::ferror(file)) return false;
            atEnd = true;
        }
    }
    return true;
}

} // namespace

int CheckCsvFile(const std::vector<CheckedField>& fields, const std::filesystem::path& path,
    const CheckOptions& options, std::FILE* out, std::FILE* err) {
    const std::string name = path.string();
    const auto fail = [&](const std::string& what, uint64_t line = 0) {
        const std::string where = line > 0 ? ", line " + std::to_string(line) : std::string();
        std::fprintf(err, "quillmar-check: %s%s: %s\n", name.c_str(), where.c_str(), what.c_str());
        return 2;
    };
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) return fail("is a directory, not a CSV file");
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "rb"));
    if (!file) return fail(std::strerror(errno));
    const uint64_t totalBytes = std::filesystem::file_size(path, error);

    std::string buffer;
    bool atEnd = false;
    const size_t block = std::max<size_t>(options.chunkBytes, 1);
    if (!ReadUntilHeader(file.get(), buffer, block, atEnd)) return fail(std::strerror(errno));
    if (buffer.starts_with("\xEF\xBB\xBF")) buffer.erase(0, 3);
    RecordPrefix header = FirstRecord(buffer);
    if (header.length == 0) {
        if (buffer.size() > kMaxRecordBytes) return fail("the header row is longer than 8 MiB", 1);
        header = { buffer.size(), CountLineBreaks(buffer) };
    }
    std::vector<std::string> columns;
    {
        CsvChunkReader reader;
        if (const auto problem
            = reader.ReadHeader(std::string_view(buffer).substr(0, header.length), columns))
            return fail(problem->what, problem->lineBreaksBefore + 1);
    }
    if (columns.empty()) return fail("no header row naming the columns");
    if (const auto fault = NoFieldColumn(fields, columns)) return fail(*fault);
    buffer.erase(0, header.length);

    CheckSession session(fields, columns, options, out, err, name, header.lineBreaks + 1, totalBytes);
    uint64_t line = header.lineBreaks + 1; // where the buffer starts
    // The bytes read and not yet handed over; the buffer past them is room for the next read. A buffer taken
    // back from the check is already as long as a block, so reading into it zero-fills and faults in nothing.
    size_t filled = buffer.size();
    for (;;) {
        const std::string_view bytes(buffer.data(), filled);
        const RecordPrefix prefix
            = atEnd ? RecordPrefix { filled, CountLineBreaks(bytes) } : CompleteRecords(bytes);
        if (prefix.length > 0) {
            // The block's bytes become the chunk's; only the unfinished record after the cut is copied.
            const size_t rest = filled - prefix.length;
            std::string next = session.TakeSpareBuffer();
            if (next.capacity() < rest + block) {
                next = std::string();
                next.reserve(rest + block + block / 16);
            }
            if (next.size() < rest) next.resize(rest);
            std::memcpy(next.data(), buffer.data() + prefix.length, rest);
            Chunk chunk;
            chunk.bytes = std::move(buffer);
            chunk.bytes.resize(prefix.length);
            buffer = std::move(next);
            filled = rest;
            chunk.lineBreaks = prefix.lineBreaks;
            chunk.inputBytes = prefix.length;
            line += prefix.lineBreaks;
            if (!session.Submit(std::move(chunk))) break;
        }
        if (atEnd) break;
        if (filled > kMaxRecordBytes) {
            session.Fail(line, "a record longer than 8 MiB (is a quote left open?)");
            break;
        }
        if (buffer.size() < filled + block) buffer.resize(filled + block);
        const size_t read = std::fread(buffer.data() + filled, 1, block, file.get());
        filled += read;
        if (read < block) {
            if (std::ferror(file.get())) {
                session.Fail(0, std::strerror(errno));
                break;
            }
            atEnd = true;
        }
    }
    return session.Finish();
}

} // namespace quillmar::check
