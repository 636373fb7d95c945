// behavior_masked.h: the mask-driven input behaviour, its character rules and their archive form.
#pragma once

#include <string>
#include <vector>

#include "platform/archive.h"
#include "toolkit/edit/edit_with_behavior.h"

namespace qmk::toolkit::edit {

// The byte tests of the default rules. Text is narrow: a multibyte character reaches a rule one
// byte at a time, so the letter tests take every byte of a multibyte sequence (lead or trail) as
// a letter byte, and such a character fills as many mask positions as it has bytes.
int IsMaskDigit(int ch);
int IsMaskLetter(int ch);
int IsMaskLetterOrDigit(int ch);

class CExtEditWithBehavior::CBehaviorMasked : public CExtEditWithBehavior::CBehaviorBase {
 public:
  // One mask symbol: which characters it takes and how they are stored.
  class CharRule {
   public:
    using ValidationFunction = int (*)(int ch);
    using ConversionFunction = int (*)(int ch);

    CharRule() = default;
    CharRule(char symbol, ValidationFunction validation, ConversionFunction conversion = nullptr)
        : m_cSymbol(symbol), m_fnValidation(validation), m_fnConversion(conversion) {}
    virtual ~CharRule() = default;
    CharRule(const CharRule&) = default;
    CharRule& operator=(const CharRule&) = default;

    virtual bool Validate(char ch) const;
    virtual char Convert(char ch) const;
    // A 32-bit signed symbol value, then the 32-bit reserved word. The functions aren't stored,
    // so a loaded rule accepts everything.
    virtual void Serialize(platform::Archive& ar);

    char Symbol() const { return m_cSymbol; }

    char m_cSymbol = 0;
    int32_t m_nReserved = -1;
    ValidationFunction m_fnValidation = nullptr;
    ConversionFunction m_fnConversion = nullptr;
  };

  // The rules of a mask; its archive form is a 32-bit count followed by the rules.
  class CharRuleArray : public std::vector<CharRule> {
   public:
    // Loading replaces the contents; false when the archive is short or names more rules than
    // it holds, and the array is then left as it was.
    bool Serialize(platform::Archive& ar);
  };

  explicit CBehaviorMasked(CExtEditWithBehavior* edit = nullptr, const std::string& mask = {});

  std::string GetValidText() const override;
  void OnChar(unsigned ch, unsigned repeat, unsigned flags) override;
  void OnKeyDown(unsigned key, unsigned repeat, unsigned flags) override;
  long OnTextChange(TextChange change) override;
  // Rebuilds the control's text from its unmasked characters.
  virtual void Reformat(bool keepSuffix);

  // The text reduced to the mask, for any text (GetValidText applies it to the control's).
  std::string ValidTextOf(const std::string& text) const;
  // The characters of `text` that differ from the mask at their index; empty for a text longer
  // than the mask.
  std::string GetTextWithoutMask(const std::string& text) const;
  std::string GetTextWithoutMask() const;
  // The selection [start, end) of `text` as positions in its unmasked form.
  void MapSelectionToUnmasked(const std::string& text, int& start, int& end) const;
  // Appends the mask's closing literals when only literals follow the caret.
  bool AppendTrailingLiterals();

  const CharRule* FindRule(char symbol) const;
  bool IsRuleSymbol(char symbol) const { return FindRule(symbol) != nullptr; }
  // Whether `text` stands on the mask: each byte is its position's literal, a byte its rule
  // takes, or (with prompts shown) the prompt, and the text is no longer than the mask.
  bool MatchesMask(const std::string& text) const;

  CharRuleArray m_arrRules;
  std::string m_strMask;
  bool m_bInsertMode = false;
  bool m_bShowPrompt = true;
  bool m_bAdvanceToNextField = true;
  char m_chPrompt = '_';
  bool m_bBackspaceInProgress = false;

 private:
  // The masked rebuild of an unmasked text; with `keepSuffix`, the literals up to the next rule
  // position are appended and `caret`, when given, is put behind them.
  std::string Rebuild(std::string unmasked, bool keepSuffix, int* caret) const;
  void PlaceChar(char ch);
  void SelectNextField(int placed);
  void TypeAhead(char ch, int start, int end);
  void DeleteLogic();
  void BackspaceLogic();
  bool IsRuleAt(int pos) const;
  // The bytes of the multibyte character at `pos` that stand on rule positions.
  int CharStart(const std::string& text, int pos) const;
  int CharEnd(const std::string& text, int pos) const;
  int MaskSize() const { return static_cast<int>(m_strMask.size()); }
};

using CBehaviorMasked = CExtEditWithBehavior::CBehaviorMasked;
using CharRule = CBehaviorMasked::CharRule;
using CharRuleArray = CBehaviorMasked::CharRuleArray;

}  // namespace qmk::toolkit::edit
