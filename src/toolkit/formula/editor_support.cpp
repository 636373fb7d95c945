// editor_support.cpp: colouring a formula in the editor and repairing a text that does not parse.
#include "toolkit/formula/editor_support.h"

#include <cctype>

#include "toolkit/formula/data_manager.h"

namespace qmk::toolkit::formula {

namespace {

bool IsReference(const CExtFormulaItem& node, CExtFormulaDataManager& manager) {
  if (node.m_nKind == kKindRange) return true;
  if (node.m_nKind != kKindIdentifier) return false;
  if (manager.FindNamedRange(node.m_strText) != nullptr) return true;
  std::string upper = node.m_strText;
  for (char& c : upper) manager.GetAlphabet().MakeUpperChar(c);
  const char* p = upper.c_str();
  return manager.GetAlphabet().ParseCell(p).column >= 0;
}

std::string WithCase(std::string text, int (*map)(int)) {
  for (char& c : text) c = static_cast<char>(map(static_cast<unsigned char>(c)));
  return text;
}

// A call's name as the set knows it: as written, else upper-cased, else lower-cased.
void FixFunctionCase(CExtFormulaItem& call, CExtFormulaDataManager& manager, FormulaEditSink& edit) {
  CExtFormulaFunctionSet& set = manager.GetFunctionSet();
  if (set.Find(call.m_strText.c_str()) != nullptr) return;
  for (int (*map)(int) : {::toupper, ::tolower}) {
    const std::string name = WithCase(call.m_strText, map);
    if (set.Find(name.c_str()) == nullptr) continue;
    edit.ReplaceText(call.m_location.start, call.m_location.start + static_cast<int>(name.size()), name);
    call.m_strText = name;
    return;
  }
}

void Highlight(CExtFormulaItem& node, CExtFormulaDataManager& manager, FormulaHighlightColors& colors,
               FormulaEditSink& edit) {
  const int start = node.m_location.start, end = node.m_location.end;
  if (IsReference(node, manager)) {
    const int32_t color = colors.NextReference(node.m_nColorIndex);
    edit.SetColor(start, end, color, node.m_bBold, node.m_bItalic);
    return;  // a range's corners share its colour
  }
  if ((node.m_nKind == kKindInteger || node.m_nKind == kKindReal) && colors.number != -1)
    edit.SetColor(start, end, colors.number, node.m_bBold, node.m_bItalic);
  if (node.m_nKind == kKindString && colors.string != -1)
    edit.SetColor(start, end, colors.string, node.m_bBold, node.m_bItalic);
  if (node.m_nKind == kKindFunctionCall) {
    FixFunctionCase(node, manager, edit);
    if (colors.function != -1)
      edit.SetColor(start, start + static_cast<int>(node.m_strText.size()), colors.function, node.m_bBold,
                    node.m_bItalic);
  }
  for (int i = 0; i < node.GetChildCount(); ++i) Highlight(*node.GetChildAt(i), manager, colors, edit);
}

bool Parses(CExtFormulaScanner& scanner, const std::string& text) {
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  const bool ok = scanner.Parse();
  if (ok) delete scanner.DetachRoot();
  return ok;
}

}  // namespace

void HighlightInEdit(CExtFormulaItem& root, CExtFormulaDataManager& manager, FormulaHighlightColors& colors,
                     FormulaEditSink& edit) {
  Highlight(root, manager, colors, edit);
}

bool RepairFormulaText(const std::string& text, CExtFormulaScanner& scanner, std::string& repaired) {
  std::vector<std::string> tries{text + ")"};
  for (std::string shorter = text; shorter.size() > 2;) {
    shorter.pop_back();
    tries.push_back(shorter);
  }
  tries.push_back(text + "()");
  tries.push_back(text + "\"");
  for (const std::string& attempt : tries)
    if (Parses(scanner, attempt)) {
      repaired = attempt;
      return true;
    }
  return false;
}

}  // namespace qmk::toolkit::formula
