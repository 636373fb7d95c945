// style_text.h: a computed style told as text, field by field, for tools and traces.
#pragma once

#include <string>
#include <vector>

#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

// "name=value" for each field of `style` that differs from `reference`, in field order.
std::vector<std::string> DescribeStyleDifferences(const CExtRichStyleDescription& style,
                                                  const CExtRichStyleDescription& reference);

// The name of an item kind: "root", "word", "space", "tag", ...
const char* ItemKindName(int kind);

}  // namespace qmk::toolkit::richcontent
