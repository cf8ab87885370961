#pragma once

#include "qt/QtConversions.h"

#include <QString>
#include <QValidator>

#include <algorithm>
#include <functional>
#include <string>

namespace quillmar::qt {

/// Holds the user's edits to what a native single-line edit box takes: a pasted, dropped or input-method text
/// goes in up to its first line break and is cut to the room MaxLength leaves beside the rest of the text; a
/// typed key that does not fit is refused. A text the program writes is kept whole, however long
/// and whatever it holds; the rules then report it. QLineEdit's own limit cannot do this: it cuts
/// programmatic texts too.
class UserEditLimits final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& pos) const override {
        if (programmatic) return Acceptable;
        // The line edit checks the text it was given back once more before it takes it: that text is already
        // what the edit makes.
        if (!lastMade.isNull() && input == lastMade) return Acceptable;
        const State state = Check(input, pos);
        if (state == Acceptable) lastMade = input;
        return state;
    }

    /// The most characters the user may bring the text to; 0 for no limit.
    qsizetype limit = 0;
    /// True while the control itself writes the text.
    bool programmatic = false;
    /// True while a typed character goes in.
    bool typing = false;
    /// True while an input method's text goes in (sifted as typed keys, not as a paste).
    bool composing = false;
    /// Rewrites a pasted or dropped text before it goes in; false refuses it whole.
    std::function<bool(std::u16string&)> rewritePaste;
    /// The text before the edit being checked, and where its selection (or the caret) began.
    QString previous;
    qsizetype previousStart = 0;
    /// What the check made of the edit under way; null once the line edit has taken the text.
    mutable QString lastMade;

private:
    State Check(QString& input, int& pos) const {
        // The edit replaced the selection (or nothing, at the caret) of the previous text with what now ends
        // at the caret. When the two texts do not bear that out (an undo, say), what both begin and end with
        // is taken to have stayed.
        qsizetype head = previousStart;
        qsizetype tail = input.size() - pos;
        const bool fromSelection = pos >= 0 && head >= 0 && head <= pos && tail >= 0
            && head + tail <= previous.size()
            && QStringView(input).left(head) == QStringView(previous).left(head)
            && QStringView(input).right(tail) == QStringView(previous).right(tail);
        if (!fromSelection) {
            const qsizetype shorter = std::min(input.size(), previous.size());
            head = 0;
            while (head < shorter && input[head] == previous[head])
                ++head;
            tail = 0;
            while (tail < shorter - head
                && input[input.size() - 1 - tail] == previous[previous.size() - 1 - tail])
                ++tail;
        }
        qsizetype inserted = input.size() - head - tail;
        for (qsizetype i = head; i < head + inserted; ++i)
            if (input[i] == u'\r' || input[i] == u'\n') inserted = i - head;
        // The first line of a pasted or dropped text is made to read as typed in the field, as the in-memory
        // box does, before the room left cuts it.
        if (!typing && !composing && rewritePaste && inserted > 0) {
            std::u16string pasted = FromQString(input.mid(head, inserted));
            const std::u16string given = pasted;
            if (!rewritePaste(pasted)) return Invalid; // the field refused the paste: nothing changes
            if (pasted != given) {
                input = input.left(head) + ToQString(pasted) + input.right(tail);
                inserted = static_cast<qsizetype>(pasted.size());
                pos = static_cast<int>(head + inserted);
            }
        }
        if (limit > 0 && inserted > limit - head - tail) {
            if (typing) return Invalid; // a key that does not fit is refused
            inserted = std::max<qsizetype>(limit - head - tail, 0);
        }
        if (head + inserted + tail == input.size()) return Acceptable;
        // Nothing of the edit left to make: it is undone whole.
        if (inserted == 0 && head + tail == previous.size()) return Invalid;
        input = input.left(head + inserted) + input.right(tail);
        pos = static_cast<int>(head + inserted);
        return Acceptable;
    }
};

} // namespace quillmar::qt
