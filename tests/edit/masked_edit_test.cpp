// masked_edit_test.cpp: keystroke scripts through the mask behaviour, with the text and the
// selection expected after each step, and the mask's text operations.
#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "toolkit/edit/edit_masked.h"
#include "toolkit/edit/keystrokes.h"

namespace qmk::toolkit::edit {
namespace {

struct Step {
  const char* keys;
  const char* text;
  int start, end;  // the selection after the step
};

struct Script {
  const char* name;
  const char* mask;
  bool show_prompt, insert_mode, advance;
  std::vector<Step> steps;
};

int Upper(int ch) { return std::toupper(ch); }
int Alpha(int ch) { return std::isalpha(ch); }

// Replays a script that the test knows to be well formed.
void Type(MemoryEdit& edit, const std::string& keys) {
  const auto steps = ParseKeystrokes(keys, nullptr);
  ASSERT_TRUE(steps) << keys;
  for (const Keystroke& k : *steps) Replay(edit, k);
}

void RunScript(const Script& script) {
  CExtEditMasked edit;
  edit.SetShowPrompt(script.show_prompt);
  edit.SetInsertMode(script.insert_mode);
  edit.SetAdvanceToNextField(script.advance);
  edit.SetMask(script.mask);
  for (const Step& step : script.steps) {
    Type(edit, step.keys);
    int start = -1, end = -1;
    edit.GetSel(start, end);
    EXPECT_EQ(edit.GetText(), step.text) << script.name << " after \"" << step.keys << "\"";
    EXPECT_EQ(start, step.start) << script.name << " after \"" << step.keys << "\"";
    EXPECT_EQ(end, step.end) << script.name << " after \"" << step.keys << "\"";
  }
}

// Each script types into a fresh control and names the text and selection after each step.
const Script kScripts[] = {
    {"date", "##/##/####", true, false, true,
      {{"", "__/__/____", 0, 0},
       {"1", "1_/__/____", 1, 1},
       // The first field is full, so the next one is selected for the next digit.
       {"2", "12/__/____", 3, 5},
       {"3", "12/3_/____", 4, 4},
       {"<BS>", "12/__/____", 3, 3},
       // Backspace behind the slash takes the digit before it and leaves the prompt.
       {"<BS>", "1_/__/____", 1, 1},
       {"a", "1_/__/____", 1, 1},
       {"<BS><BS>", "__/__/____", 0, 0}}},
    {"slash", "##/##/####", true, false, false,
      {{"12", "12/__/____", 2, 2},
       {"/", "12/__/____", 3, 3},
       {"3", "12/3_/____", 4, 4},
       // A digit typed at a literal goes to the rule position behind it.
       {"4<LEFT><LEFT><LEFT>", "12/34/____", 2, 2},
       {"/", "12/34/____", 3, 3},
       {"<END>", "12/34/____", 10, 10}}},
    {"no prompts", "##/##", false, false, true,
      {{"", "", 0, 0},
       {"1", "1", 1, 1},
       {"2", "12", 2, 2},
       {"3", "12/3", 4, 4},
       {"4", "12/34", 5, 5},
       {"5", "12/34", 5, 5},
       {"<BS>", "12/3", 4, 4},
       {"<BS>", "12", 2, 2},
       {"<BS>", "1", 1, 1}}},
    {"closing", "(###)", false, false, true,
      {{"1", "(1", 2, 2}, {"23", "(123)", 4, 4}, {"x", "(123)", 4, 4}}},
    {"literals", "(-)", true, false, true,
      {{"", "(-)", 0, 0}, {"x", "(-)", 0, 0}, {"1", "(-)", 0, 0}, {"(", "(-)", 1, 1}, {"-", "(-)", 2, 2}}},
    {"refuse", "#@$", true, false, true,
      {{"a", "___", 0, 0},
       {"1", "1__", 1, 1},
       {"2", "1__", 1, 1},
       {"b", "1b_", 2, 2},
       {"!", "1b_", 2, 2},
       {"Z", "1bZ", 3, 3}}},
    // "é" is two bytes in UTF-8 and fills two letter positions; a digit position refuses both.
    {"multibyte", "@@-##", true, false, true,
      {{"\xC3", "\xC3_-__", 1, 1},
       {"\xA9", "\xC3\xA9-__", 3, 5},
       {"\xC3\xA9", "\xC3\xA9-__", 3, 5},
       {"7", "\xC3\xA9-7_", 4, 4}}},
    {"multibyte letters", "@@@@", true, false, true,
      {{"\xC3\xA9x", "\xC3\xA9x_", 3, 3},
       // Deleting takes the whole character, never half of it.
       {"<BS>", "\xC3\xA9__", 2, 2},
       {"<BS>", "____", 0, 0},
       {"\xC3\xA9<HOME><DEL>", "____", 0, 0}}},
    {"multibyte without prompts", "@@@@", false, false, true,
      {{"a\xC3\xA9", "a\xC3\xA9", 3, 3}, {"<BS>", "a", 1, 1}, {"<HOME><DEL>", "", 0, 0}}},
    {"insert", "#####", true, true, true,
      {{"123", "123__", 3, 3},
       {"<HOME>9", "9123_", 1, 1},
       {"8", "98123", 2, 2},
       // Full and no prompt left: the character is dropped.
       {"7", "98123", 2, 2}}},
    {"delete", "##/##/####", true, false, false,
      {{"12345678", "12/34/5678", 10, 10},
       {"<HOME><DEL>", "_2/34/5678", 0, 0},
       // Delete at a literal goes on to the digit behind it.
       {"<RIGHT><RIGHT><DEL>", "_2/_4/5678", 3, 3},
       {"<HOME><S-RIGHT><S-RIGHT><S-RIGHT><S-RIGHT><S-RIGHT><DEL>", "__/__/5678", 0, 0},
       {"<END><DEL>", "__/__/5678", 10, 10}}},
    {"backspace selection", "##-##", true, false, false,
      {{"1234", "12-34", 5, 5}, {"<S-LEFT><S-LEFT><S-LEFT><BS>", "12-__", 2, 2}, {"<HOME><BS>", "12-__", 0, 0}}},
    {"paste", "#####", true, false, true, {{"<PASTE:12x34>", "12___", 0, 0}}},
    {"paste date", "##/##/####", true, false, true, {{"<PASTE:12345678>", "12/34/5678", 0, 0}}},
};

TEST(MaskedEdit, KeystrokeScripts) {
  for (const Script& script : kScripts) RunScript(script);
}

TEST(MaskedEdit, EnteringTheNextFieldEmptiesIt) {
  // Kept on purpose: completing a field selects the next one and overwrites it with prompts,
  // even when it held digits.
  RunScript({"next field", "##/##/####", true, false, true,
             {{"12345678", "12/34/5678", 10, 10}, {"<HOME>98", "98/__/5678", 3, 5}}});
}

TEST(MaskedEdit, ClipboardKeysGoThroughTheMask) {
  RunScript({"clipboard", "##/##/####", true, false, false,
             {{"12345678<HOME><S-END><C-C>", "12/34/5678", 0, 10},
              {"<S-DEL>", "__/__/____", 0, 0},
              {"<C-V>", "12/34/5678", 0, 0},
              {"<HOME><S-RIGHT><S-RIGHT><C-X>", "__/34/5678", 0, 0},
              // A paste inserts, and the text is cut at the first character that no longer fits.
              {"<S-INS>", "12/__/____", 0, 0}}});
  CExtEditMasked edit("##");
  Type(edit, "12<HOME><S-END>");
  edit.SetReadOnly(true);
  edit.SetClipboard("");
  Type(edit, "<C-X><S-DEL><C-V>");
  EXPECT_EQ(edit.GetText(), "12") << "a read-only control swallows cut and paste";
  EXPECT_EQ(edit.Clipboard(), "");
  Type(edit, "<C-INS>");
  EXPECT_EQ(edit.Clipboard(), "12") << "and still copies";
}

TEST(MaskedEdit, ReadOnlyTakesNothing) {
  CExtEditMasked edit("##");
  edit.SetReadOnly(true);
  for (const char* keys : {"1", "<BS>", "<DEL>", "<PASTE:12>"}) {
    Type(edit, keys);
    EXPECT_EQ(edit.GetText(), "__") << keys;
  }
}

TEST(MaskedEdit, ApplicationRuleConvertsWhatItTakes) {
  CExtEditMasked edit;
  edit.Behavior().m_arrRules.push_back(CharRule('>', Alpha, Upper));
  edit.SetMask(">>-##");
  Type(edit, "ab1");
  EXPECT_EQ(edit.GetText(), "AB-1_");
  EXPECT_EQ(edit.GetTextWithoutMask(), "AB1_");
}

TEST(MaskedEdit, SettingsReformatTheText) {
  CExtEditMasked edit("##/##");
  Type(edit, "1");
  edit.SetPromptChar('*');
  EXPECT_EQ(edit.GetText(), "1*/**");
  // A text longer than the new mask has no unmasked form, so it starts over.
  edit.SetMask("#-#");
  EXPECT_EQ(edit.GetText(), "*-*");
  Type(edit, "<HOME>4");
  EXPECT_EQ(edit.GetText(), "4-*");
  edit.SetShowPrompt(false);
  EXPECT_EQ(edit.GetText(), "4-") << "without prompts, prompt characters are not input";
}

TEST(MaskedEdit, ReformatWithSuffixMovesTheCaretBehindTheLiterals) {
  CExtEditMasked edit;
  edit.SetShowPrompt(false);
  edit.SetMask("##-##");
  edit.SetText("12");
  edit.SetSel(2, 2);
  edit.Behavior().Reformat(true);
  EXPECT_EQ(edit.GetText(), "12-");
  EXPECT_EQ(edit.Caret(), 3);
}

TEST(MaskedEdit, EachEditLeavesAnUndoPoint) {
  CExtEditMasked edit("##-##");
  Type(edit, "12");
  Type(edit, "3");
  EXPECT_EQ(edit.GetText(), "12-3_");
  ASSERT_TRUE(edit.Undo());
  EXPECT_EQ(edit.GetText(), "12-__");
  ASSERT_TRUE(edit.Undo());
  EXPECT_EQ(edit.GetText(), "1_-__");
  Type(edit, "<DEL>");
  ASSERT_TRUE(edit.Undo());
  EXPECT_EQ(edit.GetText(), "1_-__");
}

TEST(MaskedEdit, EmptyMaskLeavesTheControlAlone) {
  CExtEditMasked edit;
  Type(edit, "ab<BS>c");
  EXPECT_EQ(edit.GetText(), "ac");
  EXPECT_EQ(edit.Behavior().GetValidText(), "ac");
}

TEST(MaskedText, GetValidText) {
  struct Case {
    const char* mask;
    bool prompts;
    const char* text;
    const char* valid;
  };
  for (const Case c : {Case{"##/##/####", true, "1234", "12/34"},
                       {"##/##/####", true, "12x34", "12"},
                       {"#####", true, "12x34", "12"},
                       {"##/##", false, "1a", "1"},
                       {"##/##", true, "12/__", "12/__"},
                       {"@#", true, "1", "_1"},
                       {"@#", false, "1", ""},
                       {"(###)", true, "123", "(123"},
                       {"##", true, "12345", "12"},
                       {"", true, "any", "any"}}) {
    CBehaviorMasked behavior(nullptr, c.mask);
    behavior.m_bShowPrompt = c.prompts;
    EXPECT_EQ(behavior.ValidTextOf(c.text), c.valid) << c.mask << " / " << c.text;
  }
}

TEST(MaskedText, TextWithoutMaskAndSelectionMapping) {
  CBehaviorMasked behavior(nullptr, "##/##/####");
  EXPECT_EQ(behavior.GetTextWithoutMask("12/34/5678"), "12345678");
  EXPECT_EQ(behavior.GetTextWithoutMask("1_/__"), "1___");
  EXPECT_EQ(behavior.GetTextWithoutMask("12/34/56789"), "") << "longer than the mask";
  struct Case {
    int start, end, want_start, want_end;
  };
  for (const Case c : {Case{0, 0, 0, 0}, {3, 7, 2, 5}, {2, 3, 2, 2}, {0, 10, 0, 8}, {9, 40, 7, 8}}) {
    int s = c.start, e = c.end;
    behavior.MapSelectionToUnmasked("12/34/5678", s, e);
    EXPECT_EQ(s, c.want_start) << c.start << ".." << c.end;
    EXPECT_EQ(e, c.want_end) << c.start << ".." << c.end;
  }
  // A typed character equal to the mask character at its place is dropped like a literal.
  CBehaviorMasked any(nullptr, "??");
  any.m_arrRules.push_back(CharRule('?', nullptr));
  EXPECT_EQ(any.GetTextWithoutMask("?a"), "a");
  // Kept: so a rule whose conversion yields its own symbol loses that character on a rebuild.
  CExtEditMasked edit;
  edit.Behavior().m_arrRules.push_back(CharRule('A', Alpha, Upper));
  edit.SetMask("AA");
  Type(edit, "ab");
  EXPECT_EQ(edit.GetText(), "_B");
}

TEST(CharRules, ArchiveFormRoundTripsSymbolsButNotFunctions) {
  CharRuleArray rules = CBehaviorMasked(nullptr).m_arrRules;
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(rules.Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();
  const std::vector<uint8_t> want = {3, 0, 0, 0, '#', 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, '@', 0, 0, 0,
                                     0xFF, 0xFF, 0xFF, 0xFF, '$', 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF};
  EXPECT_EQ(bytes, want);
  platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  CharRuleArray loaded;
  ASSERT_TRUE(loaded.Serialize(in));
  ASSERT_EQ(loaded.size(), 3u);
  EXPECT_EQ(loaded[1].Symbol(), '@');
  EXPECT_EQ(loaded[1].m_nReserved, -1);
  EXPECT_TRUE(loaded[0].Validate('x')) << "a loaded rule accepts everything";
}

TEST(CharRules, BadArchivesLeaveTheArrayAlone) {
  const std::vector<std::vector<uint8_t>> bad = {
      {},                                  // no count
      {2, 0, 0, 0, '#', 0, 0, 0},          // short of its rules
      {0xFF, 0xFF, 0xFF, 0x7F, 0, 0, 0, 0}  // a count the archive cannot hold
  };
  for (const auto& bytes : bad) {
    CharRuleArray rules = CBehaviorMasked(nullptr).m_arrRules;
    platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
    EXPECT_FALSE(rules.Serialize(in)) << bytes.size() << " bytes";
    EXPECT_EQ(rules.size(), 3u);
  }
}

TEST(Keystrokes, ScriptsReadAndPrintBack) {
  std::string error;
  const auto steps = ParseKeystrokes("1<S-LEFT><PASTE:a>b<> <LT>", &error);
  EXPECT_FALSE(steps);
  EXPECT_NE(error.find("<>"), std::string::npos);
  const auto good = ParseKeystrokes("1<S-LEFT><PASTE:a>b<LT><DEL><CUT><C-V><S-INS>", &error);
  ASSERT_TRUE(good);
  std::string printed;
  for (const Keystroke& k : *good) printed += k.Label();
  EXPECT_EQ(printed, "1<S-LEFT><PASTE:a>b<LT><DEL><CUT><C-V><S-INS>");
  EXPECT_FALSE(ParseKeystrokes("<V>", &error)) << "a letter key wants Control";
  EXPECT_FALSE(ParseKeystrokes("<BS", &error));
}

}  // namespace
}  // namespace qmk::toolkit::edit
