// render.h: laying out and painting a whole document onto a new white page, for hosts that want
// a picture (the command line, tests).
#pragma once

#include <memory>

#include "platform/draw/draw_target.h"
#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {

// Lays `layout` out `width` pixels wide and paints it on a white page as tall as the document
// (or `height` when above 0; a turned document needs one, else it gets a square page). Null when
// the size is not usable (width or height under 1 or above 16384).
std::unique_ptr<platform::DrawTarget> RenderDocument(RichDocumentLayout& layout, int width, int height = 0);

}  // namespace qmk::toolkit::richcontent
