#include "pages/FieldPages.h"

#include "pages/GeneralPage.h"
#include "pages/NumDTPage.h"

namespace quillmar::pages {

void AddFieldPages(PropertyPageFrame& frame) {
    frame.AddPage(new GeneralPage(frame.Services()));
    frame.AddPage(new NumDTPage(frame.Services()));
}

} // namespace quillmar::pages
