// scanner.h: CExtFormulaScanner: the character reader, the lexer and the parser of formula text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

// Token codes of the lexer. Any other single character is its own code, the blank included.
enum FormulaToken : int {
  kTokenEnd = 0,
  kTokenSpace = ' ',
  kTokenReal = 257,
  kTokenInteger = 258,
  kTokenString = 259,
  kTokenIdentifier = 260,
  kTokenGreaterOrEqual = 261,
  kTokenLessOrEqual = 262,
  kTokenNotEqual = 263,
};

class CExtFormulaScanner {
 public:
  // Reading past the end of the text gives blanks, and the end is reached only this many
  // characters later, so that the lexer's look-ahead needs no end checks.
  static constexpr int kOverrun = 13;
  // The parser's state and value stacks hold this many entries; one more fails the parse.
  static constexpr int kStackLimit = 500;
  // Longer texts are refused ("formula too long"), and so are trees deeper than the depth
  // limit ("formula nested too deeply"): a chain such as "=1+1+...+1" nests without bound, and
  // printing, shifting and evaluating walk the tree by recursion.
  static constexpr int kMaxTextLength = 1 << 20;
  static constexpr int kMaxTreeDepth = 10000;

  CExtFormulaScanner() = default;
  CExtFormulaScanner(const CExtFormulaScanner&) = delete;
  CExtFormulaScanner& operator=(const CExtFormulaScanner&) = delete;
  ~CExtFormulaScanner();

  // Takes a new text (a length below 1 means up to its zero byte) and forgets any earlier parse.
  // The text is not copied: it must outlive the parse.
  void SetText(const char* text, int length = -1);
  // Parses the whole text as a formula "= expr". True if a tree was built; take it with
  // DetachRoot. On failure nothing is left behind and GetErrorMessage says why.
  bool Parse();
  CExtFormulaItem* GetRoot() const { return m_pRoot; }
  // Hands the tree to the caller, who then owns it.
  CExtFormulaItem* DetachRoot();
  // Why the last Parse failed: "syntax error", "unexpected EOF", "parser stack overflow", or a
  // lexical message. Diagnostics only: users see that the text is no formula.
  const std::string& GetErrorMessage() const { return m_strError; }

  // The reader.
  int GetPosition() const { return m_nPos; }
  int GetLine() const { return m_nLine; }
  int GetColumn() const { return m_nColumn; }
  bool IsEnd() const { return m_nPos >= m_nLength + kOverrun; }
  // Moves the reader to `position`, counting lines and columns; ignored outside 0..length+13.
  void SeekTo(int position);
  char ReadChar() {
    if (IsEnd()) return ' ';
    const char c = CharAt(m_nPos++);
    if (c == '\n') {
      ++m_nLine;
      m_nColumn = 0;
    } else {
      ++m_nColumn;
    }
    return c;
  }
  void UnreadChar();

  // The lexer: the next token's code; its text and location follow. Lexical errors throw
  // FormulaSyntaxError (Parse catches it).
  int NextToken();
  const std::string& GetTokenText() const { return m_strToken; }
  const FormulaLocation& GetTokenLocation() const { return m_tokenLocation; }
  int GetTokenCount() const { return m_nTokens; }

  // Used by the grammar's actions.
  CExtFormulaItem* NewNode(int kind);
  CExtFormulaItem* TokenNode();
  void SetRoot(CExtFormulaItem* root) { m_pRoot = root; }

 private:
  char CharAt(int position) const {
    return position >= 0 && position < m_nLength ? m_pText[position] : ' ';
  }
  char PeekChar() const { return CharAt(m_nPos); }
  void MarkStart() {
    m_tokenLocation.start = m_nPos;
    m_tokenLocation.start_line = m_nLine;
    m_tokenLocation.start_column = m_nColumn;
  }
  void MarkEnd() {
    m_tokenLocation.end = m_nPos;
    m_tokenLocation.end_line = m_nLine;
    m_tokenLocation.end_column = m_nColumn;
  }
  int ScanToken();
  int ScanNumber();
  void ScanString();
  void SkipComment(bool block);
  // Frees every pooled node that is not in the tree of the root.
  void ReleasePool();
  bool RootIsTooDeep() const;
  void Reset();

  const char* m_pText = "";
  int m_nLength = 0;
  bool m_bTooLong = false;
  int m_nPos = 0;
  int m_nLine = 0;
  int m_nColumn = 0;
  int m_nTokens = 0;
  std::string m_strToken;
  FormulaLocation m_tokenLocation;
  std::string m_strError;
  CExtFormulaItem* m_pRoot = nullptr;
  // Every node made during a parse, so that a failed parse frees them without walking a
  // half-built tree.
  std::vector<CExtFormulaItem*> m_pool;
  std::vector<CExtFormulaItem*> m_tops;  // kept between parses to save allocations
};

// Raised by the lexer and the parser; never leaves Parse.
struct FormulaSyntaxError {
  const char* message;
};

}  // namespace qmk::toolkit::formula
