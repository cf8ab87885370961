// The CSV reading path of quillmar-check: any bytes give a report and exit status 0 or 1, or status 2 with
// one line naming the file; reading in tiny blocks on two threads gives exactly what one block on one thread
// gives; the structural scan reads every record and every fault as libcsv does, the bytes in one piece and
// cut into chunks of whole records as the tool cuts them (the cut read by the widest and the portable scan
// alike); and every value read gets from the prepared checker the bits the interactive checker gives.
#include "apps/check/CsvChunk.h"
#include "apps/check/CsvSource.h"
#include "apps/check/RecordSplit.h"
#include "fuzz/FuzzSupport.h"
#include "validation/Rules.h"

#include <algorithm>
#include <unistd.h>

namespace {

using namespace quillmar;
using namespace quillmar::check;

struct Run {
    int status;
    std::string out;
    std::string err;
};

std::string Drain(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char buffer[4096];
    size_t read;
    while ((read = std::fread(buffer, 1, sizeof buffer, file)) > 0)
        text.append(buffer, read);
    std::fclose(file);
    return text;
}

Run Check(const std::vector<CheckedField>& fields, const std::string& path, unsigned threads, size_t block,
    bool mapped = true) {
    CheckOptions options;
    options.threads = threads;
    options.chunkBytes = block;
    options.mapFiles = mapped;
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = CheckCsvFile(fields, path, options, out, err);
    return { status, Drain(out), Drain(err) };
}

// The structure each wide scan finds (separators and their marks, quotes and bytes beyond ASCII) beside
// that of the portable scan.
void CompareScanWidths(std::string_view bytes) {
    static CsvStructure wide;
    static CsvStructure portable;
    portable.Scan(bytes, ScanWidth::Portable);
    for (const ScanWidth width : { ScanWidth::Vector, ScanWidth::Widest }) {
        wide.Scan(bytes, width);
        bool same = std::ranges::equal(wide.Separators(), portable.Separators());
        size_t start = 0;
        for (const uint32_t at : wide.Separators()) {
            same = same && wide.EndsRecord(at) == (bytes[at] == '\n' || bytes[at] == '\r')
                && wide.EndsQuoteOrHigh(at) == portable.AnyQuoteOrHigh(start, at)
                && portable.EndsQuoteOrHigh(at) == wide.EndsQuoteOrHigh(at);
            start = at + 1;
        }
        for (size_t from = 0; same && from < bytes.size(); ++from)
            same = wide.AnyQuote(from, from + 1) == portable.AnyQuote(from, from + 1)
                && wide.AnyHigh(from, from + 1) == portable.AnyHigh(from, from + 1);
        fuzz::Require(same, "a wide and the portable scan find different structures");
    }
}

// The bytes read by the structural scan (falling back to libcsv where it is unsure) and by libcsv alone.
void CompareReaders(std::string_view bytes, size_t columns) {
    static CsvChunkReader scanning;
    static CsvChunkReader reference;
    CompareScanWidths(bytes);
    ColumnTable scanned;
    ColumnTable expected;
    const auto problem = scanning.Read(bytes, columns, scanned);
    const auto expectedProblem = reference.ReadByLibcsv(bytes, columns, expected);
    fuzz::Require(problem.has_value() == expectedProblem.has_value()
            && (!problem
                || (problem->what == expectedProblem->what
                    && problem->lineBreaksBefore == expectedProblem->lineBreaksBefore)),
        "the structural scan and libcsv see different faults");
    fuzz::Require(
        scanned.RowCount() == expected.RowCount(), "the structural scan and libcsv read different rows");
    std::u16string a;
    std::u16string b;
    for (size_t column = 0; column < columns; ++column)
        for (size_t row = 0; row < expected.RowCount(); ++row)
            fuzz::Require(scanned.Text(column, row, a) == expected.Text(column, row, b),
                "the structural scan and libcsv read different values");
}

// Where the cut into whole records goes, byte by byte: the reference of the block-wise `CompleteRecords`.
RecordPrefix ReferenceCut(std::string_view bytes) {
    RecordPrefix prefix;
    bool quoted = false;
    size_t lineBreaks = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '"') quoted = !quoted;
        const bool lineBreak
            = bytes[i] == '\n' || (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] != '\n');
        if (!lineBreak) continue;
        ++lineBreaks;
        if (!quoted) prefix = { i + 1, lineBreaks };
    }
    return prefix;
}

// The body in one piece, then in the chunks of whole records a reader of `block` bytes at a time cuts.
void CompareReadersInChunks(std::string_view body, size_t columns, size_t block) {
    CompareReaders(body, columns);
    size_t start = 0;
    for (size_t end = std::min(block, body.size());; end = std::min(end + block, body.size())) {
        const bool atEnd = end == body.size();
        const std::string_view buffer = body.substr(start, end - start);
        const RecordPrefix complete = CompleteRecords(buffer);
        const RecordPrefix portable = CompleteRecords(buffer, ScanWidth::Portable);
        const RecordPrefix reference = ReferenceCut(buffer);
        fuzz::Require(complete.length == reference.length && complete.lineBreaks == reference.lineBreaks,
            "the cut into whole records is not where a byte-wise reader puts it");
        fuzz::Require(portable.length == reference.length && portable.lineBreaks == reference.lineBreaks,
            "the portable cut into whole records is not where a byte-wise reader puts it");
        const size_t cut = atEnd ? buffer.size() : complete.length;
        if (cut > 0) CompareReaders(buffer.substr(0, cut), columns);
        start += cut;
        if (atEnd) break;
    }
}

// Each value of the bytes' records, read in one piece, checked both ways.
void CompareCheckers(const std::vector<CheckedField>& fields, std::string_view bytes, size_t block) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    RecordPrefix header = FirstRecord(bytes);
    if (header.length == 0) header.length = bytes.size();
    CsvChunkReader reader;
    std::vector<std::string> names;
    if (reader.ReadHeader(bytes.substr(0, header.length), names) || names.empty()) return;
    ColumnTable table;
    (void)reader.Read(bytes.substr(header.length), names.size(), table);
    CompareReadersInChunks(bytes.substr(header.length), names.size(), block);
    for (size_t column = 0; column < names.size(); ++column) {
        const int field = FindField(fields, names[column]);
        if (field < 0) continue;
        const PreparedRules& rules = fields[static_cast<size_t>(field)].rules;
        // The batch check reads ASCII values from their bytes; each must give what the whole text gives.
        const ColumnRuns runs = table.Column(column);
        std::vector<int32_t> bits(runs.runs.size());
        CheckColumn(rules, runs, bits);
        std::u16string scratch;
        for (size_t row = 0; row < bits.size(); ++row) {
            const std::u16string_view text = table.Text(column, row, scratch);
            fuzz::Require(rules.Evaluate(text)
                    == EvaluateRules(text, rules.settings(), rules.locale(), rules.maxLength()),
                "the prepared checker disagrees with EvaluateRules", text);
            fuzz::Require(
                bits[row] == rules.CheckInput(text), "the batch check disagrees with CheckInput", text);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<CheckedField> fields
        = LoadFormFields(QUILLMAR_FUZZ_FORM, LocaleInfo::FromName("en_US")).fields;
    static const std::string path = "/tmp/quillmar-csv-fuzz-" + std::to_string(getpid()) + ".csv";
    fuzz::Require(!fields.empty(), "the fuzz form does not load");
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
    const Run whole = Check(fields, path, 1, size_t { 1 } << 20);
    fuzz::Require(whole.status >= 0 && whole.status <= 2, "an exit status other than 0, 1 or 2");
    if (whole.status == 2)
        fuzz::Require(
            whole.err.starts_with("quillmar-check: " + path) && whole.err.find('\n') == whole.err.size() - 1,
            "a fault without one line naming the file");
    else
        fuzz::Require(whole.err.empty(), "a report with an error line");
    const size_t block = 1 + (size > 0 ? data[0] % 16 : 0);
    // The file mapped, or read as a stream is.
    const Run split = Check(fields, path, 2, block, size > 0 && (data[0] & 0x10) != 0);
    // A malformed file stops both runs with one line naming it; which fault of a badly quoted record is
    // named first may depend on where a block ends, so only valid files must give the same words.
    const bool sameFault = whole.status == 2
        ? split.err.starts_with("quillmar-check: " + path) && split.err.find('\n') == split.err.size() - 1
        : split.err == whole.err;
    fuzz::Require(split.status == whole.status && split.out == whole.out && sameFault,
        "reading in small blocks differs from reading at once");
    CompareCheckers(fields, bytes, block);
    return 0;
}
