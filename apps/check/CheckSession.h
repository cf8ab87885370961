#pragma once

#include "apps/check/ColumnTable.h"
#include "apps/check/FormFields.h"
#include "apps/check/MappedFile.h"
#include "apps/check/Report.h"

#include <condition_variable>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quillmar::check {

/// How a check runs.
struct CheckOptions {
    ReportFormat format = ReportFormat::Text;
    /// Checking threads; 0 for one per core.
    unsigned threads = 0;
    /// The size of the blocks CSV is read in; a chunk of rows is about this long.
    size_t chunkBytes = size_t { 1 } << 19;
    /// Draw a progress bar on the error stream once the check has run for a second.
    bool progress = false;
    /// Read a regular CSV file by mapping it into memory rather than reading it in blocks, which copies it.
    bool mapFiles = true;
    /// The words of the report and the messages; null for the product's English.
    const CheckTexts* texts = nullptr;
};

/// A run of whole rows to check: CSV bytes to read, or rows already read into a table.
struct Chunk {
    /// CSV bytes, whole records, read into memory of the chunk's own.
    std::string bytes;
    /// Or a range of a mapped file (which outlives the check): the records that start in [begin, end), which
    /// the checking thread finds itself (`FindRecordRange`), a record starting at `begin` when
    /// `startsRecord`. The thread that writes the report makes sure each range starts where the one before
    /// stops.
    MappedFile* file = nullptr;
    size_t begin = 0;
    size_t end = 0;
    bool startsRecord = false;
    ColumnTable table;
    bool ready = false;
    /// The physical line breaks `bytes` hold (for the line numbers of faults).
    size_t lineBreaks = 0;
    /// The share of the input the chunk stands for, for the progress bar.
    uint64_t inputBytes = 0;
};

/// One check of a data source against a form's fields: chunks of rows go in, in order, and are read and
/// checked on the session's threads; the thread that hands them over writes the report in row order on
/// `out` as their results come back, then the summary. Memory stays bounded: `Submit` waits while a few
/// chunks per thread are on their way.
class CheckSession {
public:
    /// Starts the threads and writes a line for each column no field matches (save the columns of
    /// `IsRecordColumn`) and each field no column matches. `source` names the data in fault lines;
    /// `firstLine` is the line the first chunk starts on; `totalBytes` (0: unknown) scales the progress bar.
    CheckSession(const std::vector<CheckedField>& fields, const std::vector<std::string>& columns,
        const CheckOptions& options, std::FILE* out, std::FILE* err, std::string source, uint64_t firstLine,
        uint64_t totalBytes);
    ~CheckSession();
    CheckSession(const CheckSession&) = delete;
    CheckSession& operator=(const CheckSession&) = delete;

    /// Hands the next chunk over and writes the results that are back; false once a fault has stopped the
    /// check (submit no more).
    bool Submit(Chunk chunk);

    /// The bytes of a chunk the check is done with (as long as that chunk was, its storage kept), or an empty
    /// string: a reader that reads into it writes to memory already in use instead of fresh pages.
    [[nodiscard]] std::string TakeSpareBuffer();

    /// Stops the check with a fault of the reader at the given line (0: no line), once the chunks before
    /// it are reported.
    void Fail(uint64_t line, std::string what);

    /// Waits for every chunk, writes the summary and gives the exit status: 0 all values valid, 1 some
    /// broken, 2 a fault (whose one line went to `err`).
    int Finish();

private:
    struct Result;
    void Work();
    /// Writes the results of the chunks checked, in order, waiting for them while `limit` or more chunks are
    /// on their way; false once a fault has stopped the check.
    bool WriteDone(uint64_t limit);
    /// Writes one chunk's lines and counts them; false for a chunk that ends in a fault.
    bool Write(const Result& result);
    void CheckChunk(Chunk& chunk, Result& result, struct WorkerState& state) const;
    /// Makes sure a range of a mapped file starts where the range before it stopped, finding its records
    /// again from there when its guess was wrong.
    void Follow(std::unique_ptr<Result>& result);
    void DrawProgress(bool last);
    [[nodiscard]] const CheckTexts& Texts() const {
        return m_options.texts ? *m_options.texts : EnglishCheckTexts();
    }

    const std::vector<CheckedField>& m_fields;
    std::vector<std::string> m_columns;
    std::vector<int> m_fieldOfColumn;
    CheckOptions m_options;
    std::FILE* m_out;
    std::FILE* m_err;
    std::string m_source;
    uint64_t m_totalBytes;

    std::mutex m_mutex;
    std::condition_variable m_workAvailable; // workers wait for chunks
    std::condition_variable m_resultReady; // the writer waits for the next chunk's result
    uint64_t m_writerWants = 0; // while the writer waits: the results, from the next, it waits for
    std::map<uint64_t, Chunk> m_pending;
    std::map<uint64_t, std::unique_ptr<Result>> m_done;
    uint64_t m_submitted = 0;
    uint64_t m_consumed = 0;
    bool m_closing = false;
    bool m_stopped = false;
    std::optional<std::pair<uint64_t, std::string>> m_readerFault; // chunk index, line
    std::vector<std::string> m_spareBuffers; // a few checked chunks' bytes, for the reader to fill again
    std::vector<std::thread> m_workers;
    bool m_finished = false;
    std::unique_ptr<struct WorkerState> m_followState; // for ranges found again by the writing thread

    // Owned by the thread that submits, which writes the report.
    uint64_t m_rows = 0;
    uint64_t m_values = 0;
    uint64_t m_line; // where the next chunk of bytes starts
    // In a mapped file: where the first range started (line `m_line`), and where the next one must start.
    std::optional<size_t> m_fileStart;
    size_t m_nextStart = 0;
    std::string m_lines; // a chunk's report lines
    uint64_t m_bytesDone = 0;
    std::vector<uint64_t> m_brokenByField;
    bool m_fault = false;
    double m_started = 0;
    double m_lastDrawn = 0;
    bool m_drawn = false;
};

} // namespace quillmar::check
