#pragma once

#include <QString>

#include <cstddef>
#include <deque>

namespace quillmar::qt {

/// The text of the edit box with its caret and the other end of its selection (the caret when none).
struct EditState {
    QString text;
    int cursor = 0;
    int anchor = 0;
};

/// The field's undo history: a list of steps, each the state before and after one edit. An edit is a group
/// that may nest (the user's key, and the control's repairs it causes); the outermost group that changed the
/// text becomes one step, and a new step drops what could be redone. The oldest steps go beyond
/// `kMaxSteps`, so that a field typed in for hours holds no more than a text editor's undo would.
class EditHistory {
public:
    static constexpr std::size_t kMaxSteps = 100;

    /// Starts the history afresh from `current`; inside a group, the group then starts from it too.
    void Reset(const EditState& current);
    void Begin(const EditState& current);
    void End(const EditState& current);
    /// Starts a group from the state the text had before a change already made.
    void BeginFromSettled() { Begin(m_settled); }
    [[nodiscard]] bool InGroup() const { return m_depth > 0; }

    /// Notes a state the box moved to without an edit (the caret, the selection, a restored step).
    void Settle(const EditState& current);
    [[nodiscard]] const EditState& Settled() const { return m_settled; }

    [[nodiscard]] bool CanUndo() const { return m_done > 0; }
    [[nodiscard]] bool CanRedo() const { return m_done < m_steps.size(); }
    /// The state to restore, and the history moved past it; call only when allowed.
    [[nodiscard]] const EditState& Undo() { return m_steps[--m_done].before; }
    [[nodiscard]] const EditState& Redo() { return m_steps[m_done++].after; }

private:
    struct Step {
        EditState before;
        EditState after;
    };

    std::deque<Step> m_steps;
    std::size_t m_done = 0;
    int m_depth = 0;
    EditState m_groupStart;
    EditState m_settled;
};

} // namespace quillmar::qt
