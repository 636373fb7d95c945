// readers.h: the pieces of the markup and style sheet readers that the layout's entry points
// share, private to the rich content engine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {

// Cuts a text run into word and space items (and `br` items for newlines when `pre`), added to
// the layout's flat list. Entities are resolved into one byte each.
bool ParseTextRun(CExtRichContentLayout& layout, std::string_view text, bool pre);

// The three value splitters of a declaration.
std::vector<std::string> SplitContentValue(std::string_view value);
std::vector<std::string> SplitFontFamilyValue(std::string_view value);
std::vector<std::string> SplitGeneralValue(std::string_view value);

// Is `name` one of the void element names (after lower-casing; the table is case-sensitive)?
bool IsVoidName(std::string_view name);

// Runs the handler of an attribute (AttributeTable) or a declaration (PropertyTable) on `rule`;
// false when the name is not in the table.
bool ApplyAttribute(CExtRichContentItem& item, CExtRichContentItem& attribute,
                    CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
bool ApplyProperty(CExtRichContentItem& item, CExtRichContentItem& declaration,
                   CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
size_t PropertyTableSize();
size_t AttributeTableSize();

}  // namespace qmk::toolkit::richcontent

namespace qmk::toolkit::richcontent {

// Value readers that the attribute handlers share with the property handlers.
void ReadMinMax(CExtRichStyleRule& rule, LengthField field, const std::string& value,
                const CExtRichStyleDescription& parentStyle);
void ReadSizeWithPercent(CExtRichStyleRule& rule, LengthField field, const std::string& value,
                         const CExtRichStyleDescription& parentStyle);

}  // namespace qmk::toolkit::richcontent
