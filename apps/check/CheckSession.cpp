#include "apps/check/CheckSession.h"

#include "apps/check/CsvChunk.h"
#include "apps/check/RecordSplit.h"

#include <algorithm>
#include <chrono>

namespace quillmar::check {

// What a worker hands back for one chunk: the report lines without their row numbers, the counts, a fault.
struct CheckSession::Result {
    uint64_t rows = 0;
    uint64_t values = 0;
    std::string text;
    /// Per broken value: its row within the chunk and where its line's end starts and ends in `text`.
    struct Entry {
        uint64_t row;
        size_t start;
        size_t end;
    };
    std::vector<Entry> entries;
    std::vector<uint64_t> brokenByField;
    std::optional<CsvProblem> problem;
    size_t lineBreaks = 0;
    uint64_t inputBytes = 0;
    /// The mapped file the chunk's range stood in: the range, whether a record started at its beginning,
    /// and where the records read from it start and stop.
    MappedFile* file = nullptr;
    size_t begin = 0;
    size_t end = 0;
    bool startsRecord = false;
    size_t start = 0;
    size_t stop = 0;
};

// What each worker thread keeps from chunk to chunk, so that checking stops allocating once warm.
struct WorkerState {
    CsvChunkReader reader;
    ColumnTable table;
    std::vector<std::vector<int32_t>> bits;
    // A field's texts seen in earlier chunks, made when the field is first checked: one per field of the
    // form however many columns the file has (columns of the same name share their field's).
    std::vector<std::optional<ColumnMemo>> memos;
    std::u16string scratch;
};

namespace {

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

CheckSession::CheckSession(const std::vector<CheckedField>& fields, const std::vector<std::string>& columns,
    const CheckOptions& options, std::FILE* out, std::FILE* err, std::string source, uint64_t firstLine,
    uint64_t totalBytes)
    : m_fields(fields)
    , m_columns(columns)
    , m_options(options)
    , m_out(out)
    , m_err(err)
    , m_source(std::move(source))
    , m_totalBytes(totalBytes)
    , m_line(firstLine)
    , m_brokenByField(fields.size(), 0)
    , m_started(Now()) {
    std::string notes;
    for (const std::string& column : m_columns) {
        m_fieldOfColumn.push_back(FindField(m_fields, column));
        if (m_fieldOfColumn.back() < 0 && !IsRecordColumn(column))
            AppendUncheckedColumn(m_options.format, column, notes, Texts());
    }
    for (const CheckedField& field : m_fields)
        if (std::find(m_columns.begin(), m_columns.end(), field.name) == m_columns.end())
            AppendUncheckedField(m_options.format, field.name, notes, Texts());
    std::fwrite(notes.data(), 1, notes.size(), m_out);

    const unsigned threads
        = m_options.threads != 0 ? m_options.threads : std::max(1U, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < threads; ++i)
        m_workers.emplace_back([this] { Work(); });
}

CheckSession::~CheckSession() {
    if (!m_finished) (void)Finish();
}

bool CheckSession::Submit(Chunk chunk) {
    {
        std::lock_guard lock(m_mutex);
        if (m_stopped || m_readerFault) return false;
        m_pending.emplace(m_submitted++, std::move(chunk));
    }
    m_workAvailable.notify_one();
    return WriteDone(4 * m_workers.size() + 4);
}

bool CheckSession::WriteDone(uint64_t limit) {
    for (;;) {
        std::unique_ptr<Result> result;
        {
            std::unique_lock lock(m_mutex);
            for (;;) {
                if (m_stopped) return false;
                if (const auto done = m_done.find(m_consumed); done != m_done.end()) {
                    result = std::move(done->second);
                    m_done.erase(done);
                    break;
                }
                if (m_submitted - m_consumed < limit) return true;
                // Woken once for a run of results rather than for each: a wake-up across cores is dear.
                m_writerWants = std::min<uint64_t>((limit + 1) / 2, m_submitted - m_consumed);
                m_resultReady.wait(lock);
                m_writerWants = 0;
            }
        }
        if (result->file) Follow(result);
        if (!Write(*result)) {
            {
                std::lock_guard lock(m_mutex);
                m_stopped = true;
            }
            m_workAvailable.notify_all();
            return false;
        }
        std::lock_guard lock(m_mutex);
        ++m_consumed;
    }
}

std::string CheckSession::TakeSpareBuffer() {
    std::lock_guard lock(m_mutex);
    if (m_spareBuffers.empty()) return {};
    std::string spare = std::move(m_spareBuffers.back());
    m_spareBuffers.pop_back();
    return spare;
}

void CheckSession::Fail(uint64_t line, std::string what) {
    std::string text = "quillmar-check: " + m_source;
    if (line > 0) text += ", line " + std::to_string(line);
    text += ": " + what;
    std::lock_guard lock(m_mutex);
    m_readerFault.emplace(m_submitted, std::move(text));
}

int CheckSession::Finish() {
    m_finished = true;
    // Every chunk handed over is written, unless a fault stopped the check; a fault of the reader comes after
    // the chunks before it.
    if (WriteDone(1) && m_readerFault) {
        std::fprintf(m_err, "%s\n", m_readerFault->second.c_str());
        m_fault = true;
    }
    DrawProgress(true);
    {
        std::lock_guard lock(m_mutex);
        m_closing = true;
    }
    m_workAvailable.notify_all();
    for (std::thread& worker : m_workers)
        worker.join();
    if (m_fault) return 2;
    Summary summary { m_rows, m_values, {} };
    uint64_t broken = 0;
    for (size_t i = 0; i < m_fields.size(); ++i) {
        if (std::find(m_columns.begin(), m_columns.end(), m_fields[i].name) == m_columns.end()) continue;
        summary.brokenByField.emplace_back(m_fields[i].name, m_brokenByField[i]);
        broken += m_brokenByField[i];
    }
    std::string text;
    AppendSummary(m_options.format, summary, text, Texts());
    std::fwrite(text.data(), 1, text.size(), m_out);
    std::fflush(m_out);
    return broken == 0 ? 0 : 1;
}

void CheckSession::Work() {
    WorkerState state;
    for (;;) {
        std::unique_lock lock(m_mutex);
        m_workAvailable.wait(lock, [&] { return m_stopped || m_closing || !m_pending.empty(); });
        if (m_pending.empty() || m_stopped) return;
        auto node = m_pending.extract(m_pending.begin());
        lock.unlock();
        auto result = std::make_unique<Result>();
        CheckChunk(node.mapped(), *result, state);
        lock.lock();
        // Two spare buffers keep the reader supplied; more would only hold memory, and so would one grown
        // for a long record, which goes back to the system.
        std::string& bytes = node.mapped().bytes;
        if (bytes.capacity() >= m_options.chunkBytes && bytes.capacity() <= 4 * m_options.chunkBytes
            && m_spareBuffers.size() < 2)
            m_spareBuffers.push_back(std::move(bytes));
        // Only the last of the run of results the writer waits for wakes it.
        bool awaited = m_writerWants > 0 && node.key() < m_consumed + m_writerWants;
        for (uint64_t key = m_consumed; awaited && key < m_consumed + m_writerWants; ++key)
            awaited = key == node.key() || m_done.count(key) != 0;
        m_done.emplace(node.key(), std::move(result));
        lock.unlock();
        if (awaited) m_resultReady.notify_one();
    }
}

void CheckSession::CheckChunk(Chunk& chunk, Result& result, WorkerState& state) const {
    result.lineBreaks = chunk.lineBreaks;
    result.inputBytes = chunk.inputBytes;
    ColumnTable& table = chunk.ready ? chunk.table : state.table;
    std::string_view bytes = chunk.bytes;
    bool tooLong = false;
    if (chunk.file) {
        const std::string_view all = chunk.file->Bytes();
        const RecordRange range
            = FindRecordRange(all, chunk.begin, chunk.end, chunk.startsRecord, kMaxRecordBytes);
        result.file = chunk.file;
        result.begin = chunk.begin;
        result.end = chunk.end;
        result.startsRecord = chunk.startsRecord;
        result.start = range.start;
        result.stop = range.stop;
        tooLong = range.tooLong;
        bytes = all.substr(range.start, range.stop - range.start);
    }
    if (!chunk.ready) result.problem = state.reader.Read(bytes, m_columns.size(), table);
    if (tooLong && !result.problem)
        result.problem
            = CsvProblem { CountLineBreaks(bytes), "a record longer than 8 MiB (is a quote left open?)" };
    const size_t rows = table.RowCount();
    result.rows = rows;
    result.brokenByField.assign(m_fields.size(), 0);
    state.bits.resize(m_columns.size());
    state.memos.resize(m_fields.size());
    for (size_t column = 0; column < m_columns.size(); ++column) {
        const int field = m_fieldOfColumn[column];
        if (field < 0) continue;
        state.bits[column].resize(rows);
        CheckColumn(
            m_fields[static_cast<size_t>(field)].rules, table.Column(column), state.bits[column], [&] {
                std::optional<ColumnMemo>& memo = state.memos[static_cast<size_t>(field)];
                return memo ? &*memo : &memo.emplace();
            }());
        result.values += rows;
    }
    // The column, the constraint names and most messages are composed once per chunk for each field and
    // set of constraints.
    ViolationWriter writer(m_options.format, Texts().Messages());
    for (size_t column = 0; column < m_columns.size(); ++column) {
        const int field = m_fieldOfColumn[column];
        if (field < 0) continue;
        // Only columns with a broken value need their texts again.
        if (std::none_of(
                state.bits[column].begin(), state.bits[column].end(), [](int32_t b) { return b > 0; }))
            continue;
        const PreparedRules& rules = m_fields[static_cast<size_t>(field)].rules;
        for (size_t row = 0; row < rows; ++row) {
            const int32_t bits = state.bits[column][row];
            if (bits <= 0) continue;
            ++result.brokenByField[static_cast<size_t>(field)];
            const size_t start = result.text.size();
            writer.Append(
                m_columns[column], table.Text(column, row, state.scratch), bits, rules, result.text);
            result.entries.push_back({ row, start, result.text.size() });
        }
    }
    // Row order first, then column order, as a sequential reader reports.
    std::stable_sort(result.entries.begin(), result.entries.end(),
        [](const Result::Entry& a, const Result::Entry& b) { return a.row < b.row; });
    // A file that shrank as it was read gave zeros for the bytes it lost, here or in any chunk after: the
    // chunk is a fault, and nothing of it is reported.
    if (chunk.file && chunk.file->Shrank()) {
        result.problem = CsvProblem { 0, "the file shrank while it was read" };
        result.entries.clear();
    }
}

void CheckSession::Follow(std::unique_ptr<Result>& result) {
    if (!m_fileStart) m_fileStart = result->start;
    if (!result->startsRecord) {
        if (m_nextStart >= result->end) {
            // The records before run past the whole range: none starts in it.
            result->rows = 0;
            result->values = 0;
            result->entries.clear();
            std::fill(result->brokenByField.begin(), result->brokenByField.end(), 0);
            result->problem.reset();
            result->start = result->stop = m_nextStart;
        } else if (result->start != m_nextStart) {
            // The range's first line terminator stood inside a quoted value: its records are found again from
            // where the records before stop.
            Chunk again;
            again.file = result->file;
            again.begin = m_nextStart;
            again.end = result->end;
            again.startsRecord = true;
            again.inputBytes = result->inputBytes;
            if (!m_followState) m_followState = std::make_unique<WorkerState>();
            auto found = std::make_unique<Result>();
            CheckChunk(again, *found, *m_followState);
            result = std::move(found);
        }
    }
    m_nextStart = result->stop;
}

bool CheckSession::Write(const Result& result) {
    // The chunk's lines go out in one write.
    std::string& lines = m_lines;
    lines.clear();
    for (const Result::Entry& entry : result.entries) {
        AppendRow(m_options.format, m_rows + entry.row + 1, lines);
        lines.append(result.text, entry.start, entry.end - entry.start);
    }
    std::fwrite(lines.data(), 1, lines.size(), m_out);
    m_rows += result.rows;
    m_values += result.values;
    for (size_t i = 0; i < m_fields.size(); ++i)
        m_brokenByField[i] += result.brokenByField[i];
    if (result.problem) {
        // The lines of a mapped file are counted only when a fault needs one.
        if (result.file && m_fileStart)
            m_line += CountLineBreaks(result.file->Bytes().substr(*m_fileStart, result.start - *m_fileStart));
        DrawProgress(true);
        std::fprintf(m_err, "quillmar-check: %s, line %llu: %s\n", m_source.c_str(),
            static_cast<unsigned long long>(m_line + result.problem->lineBreaksBefore),
            result.problem->what.c_str());
        m_fault = true;
        return false;
    }
    if (!result.file) m_line += result.lineBreaks;
    m_bytesDone += result.inputBytes;
    if (result.file) result.file->Release(result.stop);
    DrawProgress(false);
    return true;
}

void CheckSession::DrawProgress(bool last) {
    if (!m_options.progress) return;
    const double now = Now();
    if (last) {
        if (m_drawn) std::fprintf(m_err, "\r\033[K");
        m_drawn = false;
        return;
    }
    if (now - m_started < 1.0 || now - m_lastDrawn < 0.1) return;
    m_lastDrawn = now;
    m_drawn = true;
    constexpr int kWidth = 30;
    const double share = m_totalBytes > 0 ? std::min(1.0, double(m_bytesDone) / double(m_totalBytes)) : 0;
    const int filled = static_cast<int>(share * kWidth);
    std::fprintf(m_err, "\r[%.*s%*s] %3d%%  %llu rows  %.1f M values/s", filled,
        "##############################", kWidth - filled, "", static_cast<int>(share * 100),
        static_cast<unsigned long long>(m_rows), double(m_values) / (now - m_started) / 1e6);
    std::fflush(m_err);
}

} // namespace quillmar::check
