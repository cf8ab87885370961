#pragma once

// The form-file module as one include: a form's types, its entries and its whole text to and from JSON,
// its checks, the controls built from it, and its atomic save.
#include "formfile/AtomicSave.h"
#include "formfile/FormCheck.h"
#include "formfile/FormControls.h"
#include "formfile/FormDocument.h"
#include "formfile/FormEntries.h"
#include "formfile/FormJson.h"
