// fuzz_markup.cpp: arbitrary bytes as a rich content document: read it in the form the first
// byte picks, compute every style, apply run-time declarations and change item states.
#include <cstddef>
#include <cstdint>
#include <string>

#include "toolkit/richcontent/layout.h"

using namespace qmk::toolkit::richcontent;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0 || size > 1 << 18) return 0;
  const int form = data[0] % 4;  // 0 asks the detector
  const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  CExtRichContentLayout layout;
  layout.ParseAuto(text, form, data[0] << 8);
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  PseudoStateSet hover;
  hover.m_fields[kPseudoHover] = 2;
  if (CExtRichContentItem* top = layout.Root()) {
    top->SetState(hover, 2, true);
    layout.ComputeTree(root);
    if (!top->m_children.empty()) top->m_children.front()->ApplyRunTimeDeclarations(text.substr(0, 64), root);
  }
  return 0;
}
