#pragma once

#include <quillmar/PagesExport.h>

#include <quillmar/base/LocaleInfo.h>
#include <quillmar/host/Host.h>

#include <QString>

namespace quillmar::pages {

/// The time of day to the second, as the pages read it to tell two loads within one second apart.
class QUILLMAR_PAGES_EXPORT Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since midnight, 0 to 86,399.
    [[nodiscard]] virtual int SecondsOfDay() const = 0;
};

/// The system's clock.
class QUILLMAR_PAGES_EXPORT SystemClock final : public Clock {
public:
    [[nodiscard]] int SecondsOfDay() const override;
};

/// What the frame hands every page: the beep and the message boxes (the page's own and those of its
/// embedded fields), the clock (both must outlive the pages), and the locale the pages and their embedded
/// fields read and write values in ("de_DE"; empty for the system's).
struct PageServices {
    Alerts& alerts; ///< The beep and the message boxes.
    const Clock& clock; ///< The clock of the once-a-second load check.
    QString localeName; ///< The locale's name ("de_DE"); empty for the system's.

    /// The locale's facts, read afresh at each use.
    [[nodiscard]] LocaleInfo Locale() const;
};

} // namespace quillmar::pages
