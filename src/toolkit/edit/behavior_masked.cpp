// behavior_masked.cpp: typing, deleting and pasting through a mask of rule symbols and literals.
#include "toolkit/edit/behavior_masked.h"

#include <algorithm>
#include <cctype>

namespace qmk::toolkit::edit {
namespace {

int Size(const std::string& s) { return static_cast<int>(s.size()); }

bool IsTrailByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Printable or punctuation, in the narrow code page: every byte of a multibyte character counts.
bool IsTypable(unsigned ch) { return ch >= 0x80 ? ch <= 0xFF : std::isprint(static_cast<int>(ch)) != 0; }

}  // namespace

CBehaviorMasked::CBehaviorMasked(CExtEditWithBehavior* edit, const std::string& mask)
    : CBehaviorBase(edit), m_strMask(mask) {
  m_arrRules.push_back(CharRule('#', IsMaskDigit));
  m_arrRules.push_back(CharRule('@', IsMaskLetter));
  m_arrRules.push_back(CharRule('$', IsMaskLetterOrDigit));
}

const CBehaviorMasked::CharRule* CBehaviorMasked::FindRule(char symbol) const {
  for (const CharRule& rule : m_arrRules)
    if (rule.Symbol() == symbol) return &rule;
  return nullptr;
}

int CBehaviorMasked::CharStart(const std::string& text, int pos) const {
  while (pos > 0 && pos < Size(text) && IsTrailByte(text[pos]) && IsRuleAt(pos - 1)) --pos;
  return pos;
}

int CBehaviorMasked::CharEnd(const std::string& text, int pos) const {
  int end = pos + 1;
  while (end < Size(text) && IsTrailByte(text[end]) && IsRuleAt(end)) ++end;
  return end;
}

bool CBehaviorMasked::IsRuleAt(int pos) const {
  return pos >= 0 && pos < MaskSize() && IsRuleSymbol(m_strMask[pos]);
}

bool CBehaviorMasked::MatchesMask(const std::string& text) const {
  if (m_strMask.empty()) return true;
  if (text.size() > m_strMask.size()) return false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i], k = m_strMask[i];
    const CharRule* rule = FindRule(k);
    const bool fits = rule ? rule->Validate(c) || (m_bShowPrompt && c == m_chPrompt) : c == k;
    if (!fits) return false;
  }
  return true;
}

std::string CBehaviorMasked::GetTextWithoutMask(const std::string& text) const {
  if (text.size() > m_strMask.size()) return {};
  std::string out;
  for (size_t i = 0; i < text.size(); ++i)
    if (text[i] != m_strMask[i]) out += text[i];
  return out;
}

std::string CBehaviorMasked::GetTextWithoutMask() const {
  return m_pEditWithBehaviorWnd ? GetTextWithoutMask(m_pEditWithBehaviorWnd->GetText()) : std::string();
}

void CBehaviorMasked::MapSelectionToUnmasked(const std::string& text, int& start, int& end) const {
  const int common = std::min(Size(text), MaskSize());
  auto equal_before = [&](int pos) {
    int n = 0;
    for (int i = 0; i < std::min(pos, common); ++i) n += text[i] == m_strMask[i];
    return n;
  };
  const int unmasked = Size(GetTextWithoutMask(text));
  const int s = start - equal_before(start), e = end - equal_before(end);
  start = std::clamp(s, 0, unmasked);
  end = std::clamp(e, start, unmasked);
}

std::string CBehaviorMasked::ValidTextOf(const std::string& text) const {
  if (m_strMask.empty()) return text;
  std::string out;
  size_t i = 0, m = 0;
  while (i < text.size() && m < m_strMask.size()) {
    const char c = text[i], k = m_strMask[m];
    const CharRule* rule = FindRule(k);
    if (rule && rule->Validate(c)) {
      out += rule->Convert(c);
    } else if (!rule && k == c) {
      out += c;
    } else if (m_bShowPrompt && c == m_chPrompt) {
      out += c;
    } else {
      // Look ahead for a rule position that takes the character. Literals on the way are copied;
      // a rule position passed over keeps the prompt, and without prompts it can't be passed.
      std::string filler;
      size_t ahead = m;
      bool found = false;
      for (;;) {
        const CharRule* here = FindRule(m_strMask[ahead]);
        if (ahead > m && here && here->Validate(c)) {
          found = true;
          break;
        }
        if (here && !m_bShowPrompt) break;
        filler += here ? m_chPrompt : m_strMask[ahead];
        if (++ahead >= m_strMask.size()) break;
      }
      if (!found) break;
      out += filler;
      out += FindRule(m_strMask[ahead])->Convert(c);
      m = ahead;
    }
    ++i;
    ++m;
  }
  return out;
}

std::string CBehaviorMasked::GetValidText() const {
  return m_pEditWithBehaviorWnd ? ValidTextOf(m_pEditWithBehaviorWnd->GetText()) : std::string();
}

std::string CBehaviorMasked::Rebuild(std::string unmasked, bool keepSuffix, int* caret) const {
  std::string out;
  size_t u = 0, m = 0;
  while (u < unmasked.size() && m < m_strMask.size()) {
    const char c = unmasked[u], k = m_strMask[m];
    const CharRule* rule = FindRule(k);
    if (m_bShowPrompt && c == m_chPrompt && rule) {
      out += c;
      ++u;
    } else if (rule) {
      ++u;
      if (!rule->Validate(c)) continue;  // dropped; the same position tries the next character
      out += c;
    } else if (k == c) {
      out += c;
      ++u;
    } else {
      out += k;
    }
    ++m;
  }
  if (keepSuffix && out.size() < m_strMask.size()) {
    for (; m < m_strMask.size() && !IsRuleSymbol(m_strMask[m]); ++m) out += m_strMask[m];
    if (caret) *caret = Size(out);
  }
  if (m_bShowPrompt)
    for (; m < m_strMask.size(); ++m) out += IsRuleSymbol(m_strMask[m]) ? m_chPrompt : m_strMask[m];
  return out;
}

void CBehaviorMasked::Reformat(bool keepSuffix) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit) return;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  const std::string current = edit->GetText();
  std::string text = current;
  if (text.size() < m_strMask.size() && m_bShowPrompt && !text.empty()) {
    // A character just deleted leaves a hole: the first prompt before the end closes it.
    const size_t hole = text.find(m_chPrompt);
    if (hole != std::string::npos && hole + 1 < text.size()) text.erase(hole, 1);
  }
  int caret = std::min(start, end);
  int suffix_caret = -1;
  const bool at_end = std::max(start, end) >= Size(current);
  const std::string out = Rebuild(GetTextWithoutMask(text), keepSuffix, at_end ? &suffix_caret : nullptr);
  if (suffix_caret >= 0) caret = suffix_caret;
  if (out == current || ValidTextOf(out) == current) return;
  ++m_nIgnoreNextChange;
  edit->SetText(out);
  --m_nIgnoreNextChange;
  edit->SetSel(caret, caret);
  edit->ScrollCaret();
}

bool CBehaviorMasked::AppendTrailingLiterals() {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit) return false;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  std::string text = edit->GetText();
  // Only a text that ends at the caret can take the closing literals without outgrowing the mask.
  if (start >= MaskSize() || start != Size(text)) return false;
  for (int m = start; m < MaskSize(); ++m)
    if (IsRuleSymbol(m_strMask[m])) return false;
  text += m_strMask.substr(start);
  edit->SetText(text);
  edit->SetSel(start, end);
  return true;
}

void CBehaviorMasked::PlaceChar(char ch) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  const std::string text = edit->GetText();
  std::string unmasked = GetTextWithoutMask(text);
  // Whether something is selected is judged on the text: a selected literal maps to nothing in
  // the unmasked text, and then nothing of it is to be removed.
  const bool selected = start != end;
  MapSelectionToUnmasked(text, start, end);
  bool prompt_removed = false;
  const bool on_prompt = start < Size(unmasked) && unmasked[start] == m_chPrompt;
  if (m_bInsertMode && m_bShowPrompt && !on_prompt) {
    // Inserting pushes the field along: a prompt ahead (or else behind) makes room.
    size_t hole = unmasked.find(m_chPrompt, start);
    if (hole == std::string::npos && start > 0) hole = unmasked.rfind(m_chPrompt, start - 1);
    if (hole != std::string::npos) {
      unmasked.erase(hole, 1);
      prompt_removed = true;
      if (static_cast<int>(hole) < start) --start, --end;
      else if (static_cast<int>(hole) < end) --end;
    }
  }
  if (selected)
    unmasked.erase(start, end - start);
  else if (!prompt_removed && m_bShowPrompt && start < Size(unmasked))
    unmasked.erase(start, 1);
  unmasked.insert(unmasked.begin() + start, ch);
  edit->SetText(Rebuild(unmasked, false, nullptr));
}

void CBehaviorMasked::SelectNextField(int placed) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!m_bAdvanceToNextField || !IsRuleAt(placed) || IsRuleAt(placed + 1)) return;
  int first = placed + 1;
  while (first < MaskSize() && !IsRuleAt(first)) ++first;
  std::string text = edit->GetText();
  if (first >= MaskSize() || first >= Size(text)) return;
  int last = first;
  while (last < MaskSize() && IsRuleAt(last)) ++last;
  last = std::min(last, Size(text));
  if (m_bShowPrompt) {
    // The next field is emptied as it is entered, whatever it held.
    std::fill(text.begin() + first, text.begin() + last, m_chPrompt);
    edit->SetText(text);
  }
  edit->SetSel(first, last);
}

void CBehaviorMasked::OnChar(unsigned ch, unsigned repeat, unsigned flags) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit) return;
  if (m_strMask.empty()) {
    edit->DefaultChar(ch, repeat, flags);
    return;
  }
  if (edit->IsReadOnly() || ch == kKeyBack || ch > 0xFF) return;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  const std::string text = edit->GetText();
  if (Size(text) == MaskSize() && m_bInsertMode && start == end &&
      (!m_bShowPrompt || text.find(m_chPrompt) == std::string::npos)) {
    Reformat(false);
    return;
  }
  if (!IsTypable(ch)) {
    if (CanInsertChar(ch)) edit->DefaultChar(ch, repeat, flags);
    return;
  }
  if (start >= MaskSize()) return;
  const char c = static_cast<char>(ch);
  const char k = m_strMask[start];
  const CharRule* rule = FindRule(k);
  const bool fits = rule ? rule->Validate(c) : k == c;
  if (!fits) {
    // A character for a rule position ahead: only from a literal, so that a wrong character at
    // a rule position is simply refused.
    if (!rule) TypeAhead(c, start, end);
    return;
  }
  if (!CanInsertChar(ch)) return;
  edit->SetUndoPoint();
  const char p = m_bShowPrompt && start < Size(text) ? text[start] : '\0';
  if ((!m_bInsertMode || p == m_chPrompt) && start == end && start < Size(text)) end = start + 1;
  edit->SetSel(start, end);
  PlaceChar(rule ? rule->Convert(c) : c);
  edit->SetSel(start + 1, start + 1);
  const bool appended = AppendTrailingLiterals();
  if (m_bInsertMode || m_bShowPrompt) {
    Reformat(false);
    edit->SetSel(start + 1, start + 1);
  }
  if (!appended) SelectNextField(start);
}

void CBehaviorMasked::TypeAhead(char ch, int start, int end) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  std::string symbols;
  for (const CharRule& rule : m_arrRules) symbols += rule.Symbol();
  const size_t ahead = m_strMask.find_first_of(symbols, start + 1);
  if (ahead == std::string::npos) return;
  const CharRule* rule = FindRule(m_strMask[ahead]);
  if (!rule->Validate(ch) || !CanInsertChar(static_cast<unsigned char>(ch))) return;
  const int pos = static_cast<int>(ahead);
  if (start != end) {
    edit->SetUndoPoint();
    PlaceChar(rule->Convert(ch));
    edit->SetSel(start + 1, start + 1);
    if (m_bShowPrompt) Reformat(false);
    return;
  }
  std::string text = edit->GetText();
  const std::string literals = m_strMask.substr(start, pos - start);
  // With prompts the literals already stand in the text; without, they are typed for the user.
  if (m_bShowPrompt && Size(text) >= pos)
    text.replace(start, literals.size(), literals);
  else
    text.insert(std::min<size_t>(start, text.size()), literals);
  edit->SetText(text);
  edit->SetSel(pos, pos);
  OnChar(static_cast<unsigned char>(ch), 1, 0);
}

void CBehaviorMasked::OnKeyDown(unsigned key, unsigned repeat, unsigned flags) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (!edit) return;
  if (m_strMask.empty() || (key != kKeyBack && key != kKeyDelete)) {
    CBehaviorBase::OnKeyDown(key, repeat, flags);
    return;
  }
  if (edit->IsReadOnly()) return;
  edit->SetUndoPoint();
  if (key == kKeyBack)
    BackspaceLogic();
  else
    DeleteLogic();
}

void CBehaviorMasked::BackspaceLogic() {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  m_bBackspaceInProgress = true;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  if (start != end) {
    DeleteLogic();
    return;
  }
  int pos = std::min(start, MaskSize()) - 1;
  while (pos >= 0 && !IsRuleAt(pos)) --pos;
  if (pos < 0) {
    m_bBackspaceInProgress = false;
    return;
  }
  // A multibyte character goes as a whole, not one byte of it.
  const std::string text = edit->GetText();
  const int first = CharStart(text, pos);
  const int last = pos < Size(text) ? CharEnd(text, first) : pos;
  edit->SetSel(first, last - first > 1 ? last : first);
  DeleteLogic();
}

void CBehaviorMasked::DeleteLogic() {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  const bool backspace = m_bBackspaceInProgress;
  m_bBackspaceInProgress = false;
  int start = 0, end = 0;
  edit->GetSel(start, end);
  std::string text = edit->GetText();
  if (start == end) {
    if (start >= Size(text)) return;
    if (!backspace) {
      // Delete steps over literals to the next rule position; with none the caret stays.
      int pos = start;
      while (pos < Size(text) && pos < MaskSize() && !IsRuleAt(pos)) ++pos;
      if (pos >= Size(text) || pos >= MaskSize()) return;
      start = CharStart(text, pos);
      end = CharEnd(text, start);
      if (end - start == 1) end = start;
    } else if (m_bShowPrompt) {
      text[start] = m_chPrompt;
      edit->SetText(text);
      edit->SetSel(start, start);
      return;
    }
  }
  const int caret = start;
  std::string unmasked = GetTextWithoutMask(text);
  MapSelectionToUnmasked(text, start, end);
  if (start == end) end = std::min(start + 1, Size(unmasked));
  unmasked.erase(start, end - start);
  // Prompts take the place of what went, so the fields behind do not move.
  if (m_bShowPrompt) unmasked.insert(start, end - start, m_chPrompt);
  edit->SetText(Rebuild(unmasked, false, nullptr));
  edit->SetSel(caret, caret);
  if (m_bShowPrompt) {
    Reformat(false);
    edit->SetSel(caret, caret);
  }
}

long CBehaviorMasked::OnTextChange(TextChange change) {
  CExtEditWithBehavior* edit = m_pEditWithBehaviorWnd;
  if (edit && !m_strMask.empty() && change != TextChange::kPaste) {
    // Cut and clear remove the selection as Delete does, so the fields behind keep their places
    // instead of sliding onto the literals and being cut back.
    if (edit->IsReadOnly()) return 0;
    int start = 0, end = 0;
    edit->GetSel(start, end);
    if (start == end) return 0;
    if (change == TextChange::kCut) edit->DefaultCopy();
    edit->SetUndoPoint();
    m_bBackspaceInProgress = false;
    DeleteLogic();
    return 0;
  }
  const long result = CBehaviorBase::OnTextChange(change);
  if (m_pEditWithBehaviorWnd && !m_strMask.empty() && !m_pEditWithBehaviorWnd->IsReadOnly()) Reformat(false);
  return result;
}

}  // namespace qmk::toolkit::edit
