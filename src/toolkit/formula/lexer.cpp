// lexer.cpp: CExtFormulaScanner's lexer: blanks as tokens, comments, names, numbers, strings and
// operators.
#include <cctype>
#include <cstring>

#include "toolkit/formula/scanner.h"
#include "platform/text.h"

namespace qmk::toolkit::formula {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return platform::HexDigitValue(c) >= 0; }
bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsNameStart(char c) { return IsAsciiLetter(c) || c == '_' || c == '$'; }
bool IsNameChar(char c) { return IsAsciiLetter(c) || IsDigit(c) || c == '_' || c == '!'; }
// A character behind digits that makes them part of a longer number.
bool ContinuesNumber(char c) { return c != '\0' && std::strchr("xXeE.", c) != nullptr; }

}  // namespace

int CExtFormulaScanner::NextToken() {
  const int code = ScanToken();
  if (code != kTokenEnd) ++m_nTokens;
  return code;
}

int CExtFormulaScanner::ScanToken() {
  for (;;) {
    MarkStart();
    int blanks = 0;
    while (!IsEnd() && IsBlank(PeekChar())) {
      ReadChar();
      ++blanks;
    }
    // Before the first token blanks mean nothing. Later, a run of blanks is one blank token,
    // except around a colon, where blanks vanish.
    if (blanks > 0 && m_nTokens > 0) {
      if (IsEnd() || PeekChar() != ':') {
        m_strToken = " ";
        MarkEnd();
        return kTokenSpace;
      }
      ReadChar();
      while (!IsEnd() && IsBlank(PeekChar())) ReadChar();
      m_strToken = ":";
      MarkEnd();
      return ':';
    }
    if (IsEnd()) {
      m_strToken.clear();
      MarkStart();
      MarkEnd();
      return kTokenEnd;
    }
    MarkStart();
    const char c = PeekChar();
    if (c == '/' && (CharAt(m_nPos + 1) == '*' || CharAt(m_nPos + 1) == '/')) {
      SkipComment(CharAt(m_nPos + 1) == '*');
      continue;
    }
    int code = 0;
    if (IsNameStart(c)) {
      m_strToken.assign(1, ReadChar());
      while (IsNameChar(PeekChar())) m_strToken += ReadChar();
      code = kTokenIdentifier;
    } else if (IsDigit(c) || c == '.') {
      code = ScanNumber();
    } else if (c == '"') {
      ScanString();
      code = kTokenString;
    } else {
      ReadChar();
      m_strToken.assign(1, c);
      code = static_cast<unsigned char>(c);
      const char next = PeekChar();
      if (c == '>' && next == '=') code = kTokenGreaterOrEqual;
      if (c == '<' && next == '=') code = kTokenLessOrEqual;
      if (c == '<' && next == '>') code = kTokenNotEqual;
      if (code > 255) m_strToken += ReadChar();
      // A zero byte inside the given length would read as the end of input and drop the rest.
      if (c == '\0') throw FormulaSyntaxError{"syntax error"};
    }
    MarkEnd();
    return code;
  }
}

void CExtFormulaScanner::SkipComment(bool block) {
  ReadChar();
  ReadChar();
  if (!block) {
    while (!IsEnd() && PeekChar() != '\n') ReadChar();
    return;
  }
  for (;;) {
    if (IsEnd()) throw FormulaSyntaxError{"unexpected EOF"};
    if (ReadChar() == '*' && PeekChar() == '/') {
      ReadChar();
      return;
    }
  }
}

int CExtFormulaScanner::ScanNumber() {
  const int p = m_nPos;
  int end = -1;
  int code = kTokenInteger;
  const auto digits_from = [this](int q) {
    while (IsDigit(CharAt(q))) ++q;
    return q;
  };
  // Octal shape: "0" and digits without a 9; "0" alone when no digit, or a 9, follows.
  if (CharAt(p) == '0' && !ContinuesNumber(CharAt(p + 1))) {
    const char next = CharAt(p + 1);
    if (!IsDigit(next) || next == '9') {
      end = p + 1;
    } else {
      int q = p + 1;
      bool nine = false;
      for (; IsDigit(CharAt(q)); ++q) nine = nine || CharAt(q) == '9';
      if (!nine && !ContinuesNumber(CharAt(q))) end = q;
    }
  }
  // Plain decimal.
  if (end < 0 && IsDigit(CharAt(p))) {
    const int q = digits_from(p);
    if (!ContinuesNumber(CharAt(q))) end = q;
  }
  // Hexadecimal: "0x" and any hexadecimal digits, none at all included.
  if (end < 0 && CharAt(p) == '0' && (CharAt(p + 1) == 'x' || CharAt(p + 1) == 'X')) {
    int q = p + 2;
    while (IsHexDigit(CharAt(q))) ++q;
    end = q;
  }
  if (end >= 0) {
    m_strToken.assign(m_pText + p, static_cast<size_t>(std::min(end, m_nLength) - p));
    while (m_nPos < end) ReadChar();
    return code;
  }
  // Real form, normalised to "int.fracEexp" with "0" for a missing part and "e0" for a missing
  // exponent. A lone "." is no number.
  int q = p;
  const int int_end = digits_from(q);
  std::string int_part(m_pText + p, static_cast<size_t>(int_end - p));
  q = int_end;
  std::string fraction;
  if (CharAt(q) == '.') {
    const int frac_end = digits_from(q + 1);
    fraction.assign(m_pText + q + 1, static_cast<size_t>(frac_end - q - 1));
    q = frac_end;
  }
  std::string exponent = "0";
  const bool has_exponent = CharAt(q) == 'e' || CharAt(q) == 'E';
  if (has_exponent) {
    ++q;
    exponent.clear();
    if (CharAt(q) == '-') exponent = "-";
    if (CharAt(q) == '+' || CharAt(q) == '-') ++q;
    const int exp_end = digits_from(q);
    // One leading zero of the exponent is dropped, also when it is the only digit: "1e05" is
    // "1.0e5" and "1e0" is "1.0e", which still reads as 1.
    if (CharAt(q) == '0') ++q;
    exponent.append(m_pText + q, static_cast<size_t>(exp_end - q));
    q = exp_end;
  }
  if (int_part.empty() && fraction.empty() && !has_exponent) {
    ReadChar();
    m_strToken = ".";
    return '.';
  }
  m_strToken = (int_part.empty() ? "0" : int_part) + "." + (fraction.empty() ? "0" : fraction) + "e" + exponent;
  while (m_nPos < q) ReadChar();
  code = kTokenReal;
  return code;
}

void CExtFormulaScanner::ScanString() {
  ReadChar();  // the opening quotation mark
  m_strToken.clear();
  for (;;) {
    if (IsEnd()) throw FormulaSyntaxError{"unexpected EOF"};
    char c = ReadChar();
    if (c == '"') return;
    if (c == '\\') {
      if (IsEnd()) throw FormulaSyntaxError{"unexpected EOF"};
      c = ReadChar();
      if (IsDigit(c) || c == 'x' || c == 'X')
        throw FormulaSyntaxError{"hex char codes in string values not supported"};
      if (c == 'n') c = '\n';
      else if (c == 'r') c = '\r';
      else if (c == 't') c = '\t';
    }
    m_strToken += c;
  }
}

}  // namespace qmk::toolkit::formula
