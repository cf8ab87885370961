#include "pages/FieldPages.h"

#include "pages/BehaviorPage.h"
#include "pages/ErrorMsgPage.h"
#include "pages/GeneralPage.h"
#include "pages/NumDTPage.h"
#include "pages/TextPage.h"

namespace quillmar::pages {

void AddFieldPages(PropertyPageFrame& frame) {
    frame.AddPage(new GeneralPage(frame.Services()));
    frame.AddPage(new NumDTPage(frame.Services()));
    frame.AddPage(new TextPage(frame.Services()));
    frame.AddPage(new BehaviorPage(frame.Services()));
    frame.AddPage(new ErrorMsgPage(frame.Services()));
}

} // namespace quillmar::pages
