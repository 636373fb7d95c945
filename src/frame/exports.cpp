// exports.cpp: the frame's exports. The forwarders switch no module state: they add nothing to
// the recognition library's calls.
#include "qmk/QmkRecog.h"
#include "qmk/QmkScan.h"

extern "C" {

QMK_API void ScnShowOptionalComponents(void) { ShowOptionalComponents(); }

QMK_API int ScnOptionalComponentCount(void) { return OptionalComponentCount(); }

}
