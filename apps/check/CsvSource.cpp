#include "apps/check/CsvSource.h"

#include "apps/check/CsvChunk.h"
#include "apps/check/MappedFile.h"
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

// Hands a mapped file's bytes after the header to the check in ranges of a block, which the checking
// threads cut at record boundaries themselves: this thread reads none of them.
void SubmitMapped(CheckSession& session, MappedFile& file, size_t at, size_t block) {
    const size_t size = file.Bytes().size();
    for (size_t begin = at; begin < size; begin += block) {
        Chunk chunk;
        chunk.file = &file;
        chunk.begin = begin;
        chunk.end = begin + std::min(block, size - begin);
        chunk.startsRecord = begin == at;
        chunk.inputBytes = chunk.end - begin;
        if (!session.Submit(std::move(chunk))) return;
    }
    if (file.Shrank()) session.Fail(0, "the file shrank while it was read");
}

// Hands the records after the header to the check as they are read, in blocks cut at record boundaries;
// `buffer` holds the bytes read after the header, `atEnd` whether that is all.
void SubmitStream(
    CheckSession& session, std::FILE* file, std::string buffer, bool atEnd, uint64_t line, size_t block) {
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
            if (!session.Submit(std::move(chunk))) return;
        }
        if (atEnd) return;
        if (filled > kMaxRecordBytes) {
            session.Fail(line, "a record longer than 8 MiB (is a quote left open?)");
            return;
        }
        if (buffer.size() < filled + block) buffer.resize(filled + block);
        const size_t read = std::fread(buffer.data() + filled, 1, block, file);
        filled += read;
        if (read < block) {
            if (std::ferror(file)) {
                session.Fail(0, std::strerror(errno));
                return;
            }
            atEnd = true;
        }
    }
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

    // A regular file is mapped; anything else (a pipe, a terminal) is read as a stream, whose first blocks
    // are read until they hold the header.
    const std::unique_ptr<MappedFile> mapped
        = options.mapFiles ? MappedFile::Map(fileno(file.get())) : nullptr;
    std::string buffer;
    bool atEnd = mapped != nullptr;
    const size_t block = std::max<size_t>(options.chunkBytes, 1);
    if (!mapped && !ReadUntilHeader(file.get(), buffer, block, atEnd)) return fail(std::strerror(errno));
    const std::string_view all = mapped ? mapped->Bytes() : std::string_view(buffer);
    const std::string_view text = AfterByteOrderMark(all);
    RecordPrefix header = FirstRecord(text);
    if (header.length == 0) {
        if (text.size() > kMaxRecordBytes) return fail("the header row is longer than 8 MiB", 1);
        header = { text.size(), CountLineBreaks(text) };
    }
    std::vector<std::string> columns;
    {
        CsvChunkReader reader;
        if (const auto problem = reader.ReadHeader(text.substr(0, header.length), columns))
            return fail(problem->what, problem->lineBreaksBefore + 1);
    }
    if (columns.empty()) return fail("no header row naming the columns");
    if (const auto fault = NoFieldColumn(fields, columns)) return fail(*fault);
    const size_t bodyStart = all.size() - text.size() + header.length;

    CheckSession session(fields, columns, options, out, err, name, header.lineBreaks + 1, totalBytes);
    if (mapped)
        SubmitMapped(session, *mapped, bodyStart, block);
    else
        SubmitStream(session, file.get(), buffer.substr(bodyStart), atEnd, header.lineBreaks + 1, block);
    return session.Finish();
}

} // namespace quillmar::check
