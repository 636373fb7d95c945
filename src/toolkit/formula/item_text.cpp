// item_text.cpp: CExtFormulaItem printed back as text, and the values of its literals.
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {
namespace {

// Integer literals read as decimal whatever their shape: "0x10" gives 0 and "017" gives 17,
// because the scanner's octal and hexadecimal forms only recognise the shape of the token.
// Values beyond 32 bits saturate.
int32_t DecimalLiteral(const std::string& text) {
  errno = 0;
  const long long n = std::strtoll(text.c_str(), nullptr, 10);
  if (n > INT32_MAX) return INT32_MAX;
  if (n < INT32_MIN) return INT32_MIN;
  return static_cast<int32_t>(n);
}

}  // namespace

bool CExtFormulaItem::LiteralToValue(platform::Variant& value) const {
  switch (m_nKind) {
    case kKindInteger:
      value = platform::Variant::I4(DecimalLiteral(m_strText));
      return true;
    case kKindReal:
      value = platform::Variant::R8(std::strtod(m_strText.c_str(), nullptr));
      return true;
    case kKindString:
      value = platform::Variant::Str(m_strText);
      return true;
    default:
      return false;
  }
}

std::string CExtFormulaItem::ToText() const {
  std::string out = m_pParent == nullptr ? "=" : "";
  AppendText(out);
  return out;
}

void CExtFormulaItem::AppendText(std::string& out) const {
  const auto child = [this, &out](int i) {
    if (const CExtFormulaItem* c = GetChildAt(i)) c->AppendText(out);
  };
  const auto joined = [this, &out](const char* separator) {
    for (size_t i = 0; i < m_children.size(); ++i) {
      if (i > 0) out += separator;
      if (m_children[i] != nullptr) m_children[i]->AppendText(out);
    }
  };
  switch (m_nKind) {
    case kKindIdentifier:
    case kKindInteger:
    case kKindReal:
      out += m_strText;
      return;
    case kKindString:
      // No escaping: the printed form is for reading, not for parsing again.
      out += '"';
      out += m_strText;
      out += '"';
      return;
    case kKindPercent:
      out += "((";
      child(0);
      out += ")%)";
      return;
    case kKindNegate:
      out += "(-(";
      child(0);
      out += "))";
      return;
    case kKindFunctionCall:
      out += m_strText;
      out += '(';
      joined(",");
      out += ')';
      return;
    case kKindRange:
      child(0);
      out += ':';
      child(1);
      return;
    case kKindIntersection:
      joined(" ");
      return;
    case kKindNone:
      joined(",");
      return;
    default:  // the binary operators
      out += '(';
      child(0);
      out += m_strText;
      child(1);
      out += ')';
      return;
  }
}

}  // namespace qmk::toolkit::formula
