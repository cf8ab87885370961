#include "input/ChangeRepair.h"

#include "input/Shapes.h"
#include "validation/Numbers.h"
#include "validation/TextCase.h"

namespace quillmar {
namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

ChangeRepair RepairChangedText(
    std::u16string_view changed, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale) {
    ChangeRepair repair;
    if (changed.empty()) return repair;
    std::u16string text(changed);
    const auto write = [&](RepairSelection selection) { repair.edits.push_back({ text, selection }); };
    // The case is mapped only for a rule that is on: the mapping is the dearest part of a typed key.
    const auto force = [&](bool rule, std::u16string (*mapped)(std::u16string_view)) {
        if (!rule) return;
        std::u16string forced = mapped(text);
        if (forced == text) return;
        text = std::move(forced);
        write(RepairSelection::Kept);
    };
    force(settings.MustBeUpperCase, UpperCase);
    force(settings.MustBeLowerCase, LowerCase);
    force(settings.MustBeProperCase, ProperCase);

    if (flags.NumericMode) {
        const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
        const size_t first = text.find_first_not_of(u' ');
        const size_t last = text.find_last_not_of(u' ');
        if (thousands != u" " && (first != 0 || last != text.size() - 1)) {
            text = first == std::u16string::npos ? std::u16string() : text.substr(first, last - first + 1);
            write(RepairSelection::CaretAtEnd);
        }
        // Also when trimming left nothing: the field then holds the minus alone, ready for the digits.
        if (settings.MustBeNegative && (text.empty() || text[0] != u'-')) {
            text.insert(text.begin(), u'-');
            write(RepairSelection::AfterLeadingMinus);
        }
        const size_t point = text.find(locale.decimalSeparator);
        const int decimals = settings.MaxNumberOfDecimals;
        if (point != std::u16string::npos && decimals >= 1) {
            size_t end = point + 1;
            while (end < text.size() && IsDigit(text[end]))
                ++end;
            if (end - point - 1 > static_cast<size_t>(decimals)) {
                repair.refusal = Refusal::TooManyDecimals;
                if (settings.AllowScientificFormat && text.find_first_of(u"eE") != std::u16string::npos) {
                    repair.refused = true;
                    return repair;
                }
                text.erase(point + 1 + static_cast<size_t>(decimals),
                    end - point - 1 - static_cast<size_t>(decimals));
                write(RepairSelection::Kept);
            }
        }
    }
    if (const Refusal refusal = WholeTextRefusal(text, flags, settings, locale); refusal != Refusal::None) {
        repair.refused = true;
        repair.refusal = refusal;
    }
    return repair;
}

} // namespace quillmar
