// fuzz_css.cpp: arbitrary bytes as a style sheet, linked into a small document whose elements
// touch every selector form; every style is computed.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"

using namespace qmk::toolkit::richcontent;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 1 << 18) return 0;
  const std::string sheet(reinterpret_cast<const char*>(data), size);
  CExtRichContentLayout layout;
  auto keeper = std::make_unique<CExtRichDocObjectLayoutKeeper>("f.css");
  keeper->SetText(sheet, kFormCss);
  layout.LocalContainer().Add(std::move(keeper));
  layout.ParseHtml("<link rel=stylesheet type=text/css href=f.css><p class=\"a b\" style=\"x:y\">t"
                   "<a href=q>l</a><q>q</q><table><tr><td>c</table><ul><li>i</ul><img src=i>");
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  PseudoStateSet all;
  for (int32_t& f : all.m_fields) f = 2;
  layout.Root()->SetState(all, 2, true);
  layout.ComputeTree(root);
  return 0;
}
