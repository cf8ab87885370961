#include "apps/check/RecordSplit.h"

namespace quillmar::check {
namespace {

// Calls `atTerminator(end, lineBreaksSoFar)` after each record terminator outside quotes, `end` being the
// position just past it; stops when it returns false. A final CR is left undecided.
template <typename AtTerminator> void ForEachTerminator(std::string_view bytes, AtTerminator atTerminator) {
    bool quoted = false;
    size_t lineBreaks = 0;
    const size_t n = bytes.size();
    for (size_t i = 0; i < n; ++i) {
        const char c = bytes[i];
        if (c == '"') {
            quoted = !quoted;
        } else if (c == '\n') {
            ++lineBreaks;
            if (!quoted && !atTerminator(i + 1, lineBreaks)) return;
        } else if (c == '\r') {
            if (i + 1 == n) return;
            if (bytes[i + 1] == '\n') continue; // the LF ends the line
            ++lineBreaks;
            if (!quoted && !atTerminator(i + 1, lineBreaks)) return;
        }
    }
}

} // namespace

RecordPrefix CompleteRecords(std::string_view bytes) noexcept {
    RecordPrefix prefix;
    ForEachTerminator(bytes, [&](size_t end, size_t lineBreaks) {
        prefix = { end, lineBreaks };
        return true;
    });
    return prefix;
}

RecordPrefix FirstRecord(std::string_view bytes) noexcept {
    RecordPrefix prefix;
    size_t start = 0;
    ForEachTerminator(bytes, [&](size_t end, size_t lineBreaks) {
        const bool empty = bytes[start] == '\n' || bytes[start] == '\r';
        start = end;
        if (empty) return true;
        prefix = { end, lineBreaks };
        return false;
    });
    return prefix;
}

size_t CountLineBreaks(std::string_view bytes) noexcept {
    size_t count = 0;
    for (size_t i = 0; i < bytes.size(); ++i)
        if (bytes[i] == '\n' || (bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n')))
            ++count;
    return count;
}

size_t LineBreaksBeforeRecord(std::string_view bytes, size_t record) noexcept {
    size_t start = 0;
    size_t breaksAtStart = 0;
    size_t seen = 0;
    size_t result = 0;
    bool found = false;
    const auto isRecordAt
        = [&](size_t at) { return at < bytes.size() && bytes[at] != '\n' && bytes[at] != '\r'; };
    if (isRecordAt(0) && record == 0) return 0;
    if (isRecordAt(0)) ++seen;
    ForEachTerminator(bytes, [&](size_t end, size_t lineBreaks) {
        start = end;
        breaksAtStart = lineBreaks;
        if (!isRecordAt(start)) return true;
        if (seen == record) {
            result = breaksAtStart;
            found = true;
            return false;
        }
        ++seen;
        return true;
    });
    return found ? result : CountLineBreaks(bytes);
}

} // namespace quillmar::check
