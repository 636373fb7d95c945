// subclass_controls.cpp: the themed control set hooks in here; until it stands, the plain
// controls stay as they are and nothing is bound.
#include "toolkit/dialogs/subclass_controls.h"

namespace qmk::toolkit {

int SubclassChildControls(platform::ui::HWND) { return 0; }

}  // namespace qmk::toolkit
