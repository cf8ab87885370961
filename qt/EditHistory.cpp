#include "qt/EditHistory.h"

namespace quillmar::qt {

void EditHistory::Reset(const EditState& current) {
    m_steps.clear();
    m_done = 0;
    m_groupStart = current;
    m_settled = current;
}

void EditHistory::Begin(const EditState& current) {
    if (m_depth++ == 0) m_groupStart = current;
}

void EditHistory::End(const EditState& current) {
    if (--m_depth > 0) return;
    m_settled = current;
    // An edit the control refused or undid whole leaves nothing to undo.
    if (current.text == m_groupStart.text) return;
    m_steps.resize(m_done);
    m_steps.push_back({ m_groupStart, current });
    if (m_steps.size() > kMaxSteps) m_steps.pop_front();
    m_done = m_steps.size();
}

void EditHistory::Settle(const EditState& current) {
    m_settled = current;
    // A state restored inside a group (an undo typed as a key) is where that group now starts.
    if (m_depth > 0) m_groupStart = current;
}

} // namespace quillmar::qt
