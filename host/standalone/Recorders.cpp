#include "host/standalone/Recorders.h"

#include <cmath>
#include <initializer_list>
#include <string>

namespace quillmar::standalone {
namespace {

std::string Arguments(std::initializer_list<double> values) {
    std::string text;
    for (double v : values) {
        text += ' ';
        text += std::to_string(static_cast<long long>(std::lround(v)));
    }
    return text;
}

} // namespace

void RecordingEvents::OLEStartDrag(DataObject&, int32_t& allowedEffects) {
    log.push_back("OLEStartDrag" + Arguments({ static_cast<double>(allowedEffects) }));
}

void RecordingEvents::OLESetData(DataObject&, int16_t& dataFormat) {
    log.push_back("OLESetData" + Arguments({ static_cast<double>(dataFormat) }));
}

void RecordingEvents::OLEGiveFeedback(int32_t& effect, bool& defaultCursors) {
    log.push_back(
        "OLEGiveFeedback" + Arguments({ static_cast<double>(effect), defaultCursors ? -1.0 : 0.0 }));
}

void RecordingEvents::OLEDragOver(
    DataObject&, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y, int16_t& state) {
    log.push_back("OLEDragOver"
        + Arguments({ static_cast<double>(effect), static_cast<double>(button), static_cast<double>(shift), x,
            y, static_cast<double>(state) }));
}

void RecordingEvents::OLEDragDrop(
    DataObject&, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y) {
    log.push_back("OLEDragDrop"
        + Arguments(
            { static_cast<double>(effect), static_cast<double>(button), static_cast<double>(shift), x, y }));
}

void RecordingEvents::OLECompleteDrag(int32_t& effect) {
    log.push_back("OLECompleteDrag" + Arguments({ static_cast<double>(effect) }));
}

void RecordingEvents::KeyDown(int16_t& keyCode, int16_t& shift) {
    log.push_back("KeyDown" + Arguments({ static_cast<double>(keyCode), static_cast<double>(shift) }));
}

void RecordingEvents::KeyPress(int16_t& keyAscii) {
    log.push_back("KeyPress" + Arguments({ static_cast<double>(keyAscii) }));
}

void RecordingEvents::KeyUp(int16_t& keyCode, int16_t& shift) {
    log.push_back("KeyUp" + Arguments({ static_cast<double>(keyCode), static_cast<double>(shift) }));
}

void RecordingEvents::MouseDown(int16_t& button, int16_t& shift, float& x, float& y) {
    log.push_back("MouseDown" + Arguments({ static_cast<double>(button), static_cast<double>(shift), x, y }));
}

void RecordingEvents::MouseMove(int16_t& button, int16_t& shift, float& x, float& y) {
    log.push_back("MouseMove" + Arguments({ static_cast<double>(button), static_cast<double>(shift), x, y }));
}

void RecordingEvents::MouseUp(int16_t& button, int16_t& shift, float& x, float& y) {
    log.push_back("MouseUp" + Arguments({ static_cast<double>(button), static_cast<double>(shift), x, y }));
}

std::vector<std::string> RecordingEvents::Only(std::string_view event) const {
    std::vector<std::string> matching;
    for (const std::string& entry : log)
        if (entry.compare(0, event.size(), event) == 0
            && (entry.size() == event.size() || entry[event.size()] == ' '))
            matching.push_back(entry);
    return matching;
}

Answer RecordingAlerts::Question(std::u16string_view text, std::u16string_view title, int16_t icon) {
    questions.push_back({ std::u16string(text), std::u16string(title), icon });
    if (answers.empty()) return Answer::Cancel;
    const Answer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
}

} // namespace quillmar::standalone
