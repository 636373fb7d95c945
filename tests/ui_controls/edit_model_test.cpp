// edit_model_test.cpp: editing rules of the edit model: selection edges, limit, refusals,
// line breaks, word moves and the one level of undo.
#include "platform/ui/controls/edit_model.h"

#include <gtest/gtest.h>

namespace qmk::platform::ui::controls {
namespace {

EditModel Make(std::string_view text, EditOptions o = {}) {
  EditModel m(o);
  m.SetText(text);
  return m;
}

TEST(EditModelSelection, SetSelEdges) {
  struct Case { int start, end, want_start, want_end, want_caret; };
  const Case cases[] = {
      {0, -1, 0, 5, 5},   // all
      {2, 4, 2, 4, 4},
      {4, 2, 2, 4, 2},    // reversed: the caret is at the end given
      {3, 99, 3, 5, 5},   // past the end: the end
      {-5, 2, 0, 2, 2},   // a negative start other than -1 is the text's start
      {7, 8, 5, 5, 5},
  };
  for (const Case& c : cases) {
    EditModel m = Make("hello");
    m.SetSel(c.start, c.end);
    EXPECT_EQ(m.SelStart(), c.want_start) << c.start << "," << c.end;
    EXPECT_EQ(m.SelEnd(), c.want_end) << c.start << "," << c.end;
    EXPECT_EQ(m.caret(), c.want_caret) << c.start << "," << c.end;
  }
}

TEST(EditModelSelection, MinusOneStartDropsSelectionAndKeepsCaret) {
  EditModel m = Make("hello");
  m.SetSel(1, 4);
  m.SetSel(-1, 0);
  EXPECT_FALSE(m.HasSelection());
  EXPECT_EQ(m.caret(), 4);
}

TEST(EditModelTyping, ReplacesSelectionAndRefuses) {
  struct Case { EditOptions options; std::string text; int sel_start, sel_end; char typed;
                std::string want; EditRefusal refusal; };
  const Case cases[] = {
      {{}, "abc", 1, 2, 'X', "aXc", EditRefusal::kNone},
      {{.read_only = true}, "abc", 0, 0, 'X', "abc", EditRefusal::kReadOnly},
      {{.number_only = true}, "12", 2, 2, 'a', "12", EditRefusal::kNotDigit},
      {{.number_only = true}, "12", 2, 2, '7', "127", EditRefusal::kNone},
      {{}, "ab", 2, 2, '\r', "ab", EditRefusal::kNothingToDo},
      {{.multi_line = true}, "ab", 1, 1, '\r', "a\r\nb", EditRefusal::kNone},
      {{}, "ab", 0, 0, '\x01', "ab", EditRefusal::kNothingToDo},
  };
  for (const Case& c : cases) {
    EditModel m = Make(c.text, c.options);
    m.SetSel(c.sel_start, c.sel_end);
    EditResult r = m.TypeChar(c.typed);
    EXPECT_EQ(m.text(), c.want) << c.text << " + " << int(c.typed);
    EXPECT_EQ(r.refusal, c.refusal) << c.text << " + " << int(c.typed);
    EXPECT_EQ(r.changed, c.refusal == EditRefusal::kNone);
  }
}

TEST(EditModelLimit, TypingStopsAtLimitButReplacingTheSelectionFits) {
  EditModel m = Make("abc");
  m.SetLimit(3);
  m.SetSel(3, 3);
  EditResult r = m.TypeChar('d');
  EXPECT_EQ(r.refusal, EditRefusal::kLimit);
  EXPECT_TRUE(r.hit_limit);
  EXPECT_EQ(m.text(), "abc");
  m.SetSel(0, 1);
  EXPECT_TRUE(m.TypeChar('z').changed);
  EXPECT_EQ(m.text(), "zbc");
}

TEST(EditModelLimit, PasteIsCutToFitAndWindowTextIgnoresTheLimit) {
  MemoryClipboard clip;
  clip.SetText("12345");
  EditModel m = Make("ab");
  m.SetLimit(5);
  m.SetSel(2, 2);
  EditResult r = m.Paste(clip);
  EXPECT_TRUE(r.changed);
  EXPECT_TRUE(r.hit_limit);
  EXPECT_EQ(m.text(), "ab123");
  m.SetText("much longer than five");
  EXPECT_EQ(m.text(), "much longer than five");
  m.SetLimit(0);
  EXPECT_EQ(m.limit(), EditModel::kDefaultLimit);
}

TEST(EditModelLimit, LineBreakIsNeverCutInHalf) {
  EditModel m = Make("", {.multi_line = true});
  m.SetLimit(3);
  EXPECT_TRUE(m.ReplaceSel("ab\ncd").changed);
  EXPECT_EQ(m.text(), "ab");
}

TEST(EditModelClipboard, SingleLinePasteStopsAtFirstBreakMultiLineNormalises) {
  struct Case { bool multi; std::string pasted, want; };
  for (const Case& c : {Case{false, "one\r\ntwo", "one"}, Case{false, "x\ny", "x"},
                        Case{true, "a\nb\rc", "a\r\nb\r\nc"}, Case{true, "a\r\nb", "a\r\nb"}}) {
    MemoryClipboard clip;
    clip.SetText(c.pasted);
    EditModel m = Make("", {.multi_line = c.multi});
    m.Paste(clip);
    EXPECT_EQ(m.text(), c.want) << c.pasted;
  }
}

TEST(EditModelClipboard, CutCopyPasteAndTheirRefusals) {
  MemoryClipboard clip;
  EditModel m = Make("hello world");
  m.SetSel(0, 5);
  EXPECT_TRUE(m.Copy(clip));
  EXPECT_TRUE(m.Cut(clip).changed);
  EXPECT_EQ(m.text(), " world");
  m.SetSel(6, 6);
  m.Paste(clip);
  EXPECT_EQ(m.text(), " worldhello");

  EditModel secret = Make("pw", {.password = true});
  secret.SelectAll();
  clip.SetText("kept");
  EXPECT_FALSE(secret.Copy(clip));
  EXPECT_EQ(secret.Cut(clip).refusal, EditRefusal::kPassword);
  std::string got;
  ASSERT_TRUE(clip.GetText(&got));
  EXPECT_EQ(got, "kept");
  EXPECT_EQ(secret.DisplayText('*'), "**");

  EditModel ro = Make("fixed", {.read_only = true});
  ro.SelectAll();
  EXPECT_TRUE(ro.Copy(clip));
  EXPECT_EQ(ro.Paste(clip).refusal, EditRefusal::kReadOnly);
  EXPECT_EQ(ro.Cut(clip).refusal, EditRefusal::kReadOnly);

  EditModel digits = Make("1", {.number_only = true});
  digits.SetSel(1, 1);
  clip.SetText("2a");
  EXPECT_EQ(digits.Paste(clip).refusal, EditRefusal::kNotDigit);
  clip.SetText("23");
  EXPECT_TRUE(digits.Paste(clip).changed);
  EXPECT_EQ(digits.text(), "123");
}

TEST(EditModelDelete, BackspaceAndDeleteTakeALineBreakWhole) {
  struct Case { std::string text; int caret; bool back; std::string want; int want_caret; };
  const Case cases[] = {
      {"ab\r\ncd", 4, true, "abcd", 2},
      {"ab\r\ncd", 2, false, "abcd", 2},
      {"abc", 0, true, "abc", 0},
      {"abc", 3, false, "abc", 3},
      {"abc", 2, true, "ac", 1},
      {"a\xc3\xa9" "b", 3, true, "ab", 1},   // a two-byte character goes whole
      {"a\xc3\xa9" "b", 1, false, "ab", 1},
  };
  for (const Case& c : cases) {
    EditModel m = Make(c.text, {.multi_line = true});
    m.SetSel(c.caret, c.caret);
    if (c.back) m.DeleteBack(); else m.DeleteForward();
    EXPECT_EQ(m.text(), c.want) << c.text << " at " << c.caret;
    EXPECT_EQ(m.caret(), c.want_caret) << c.text << " at " << c.caret;
  }
}

TEST(EditModelUndo, TypedRunUndoesAtOnceAndUndoAgainRedoes) {
  EditModel m = Make("x");
  m.SetSel(1, 1);
  for (char c : std::string("abc")) m.TypeChar(c);
  EXPECT_EQ(m.text(), "xabc");
  ASSERT_TRUE(m.CanUndo());
  m.Undo();
  EXPECT_EQ(m.text(), "x");
  m.Undo();
  EXPECT_EQ(m.text(), "xabc");
  // The text that came back is selected.
  EXPECT_EQ(m.SelectedText(), "abc");
}

TEST(EditModelUndo, BackspaceRunAndReplacedSelectionRestore) {
  EditModel m = Make("hello");
  m.SetSel(5, 5);
  m.DeleteBack();
  m.DeleteBack();
  EXPECT_EQ(m.text(), "hel");
  m.Undo();
  EXPECT_EQ(m.text(), "hello");
  EXPECT_EQ(m.SelectedText(), "lo");

  m.SetSel(0, 5);
  m.TypeChar('Q');
  EXPECT_EQ(m.text(), "Q");
  m.Undo();
  EXPECT_EQ(m.text(), "hello");
}

TEST(EditModelUndo, ChangeWithoutUndoEmptiesTheBuffer) {
  EditModel m = Make("");
  m.TypeChar('a');
  m.SetSel(0, 0);
  m.ReplaceSel("xyz", false);
  EXPECT_FALSE(m.CanUndo());
  EXPECT_EQ(m.text(), "xyza");
}

TEST(EditModelUndo, WindowTextEmptiesTheUndoBuffer) {
  EditModel m = Make("a");
  m.SetSel(1, 1);
  m.TypeChar('b');
  EXPECT_TRUE(m.modified());
  m.SetText("new");
  EXPECT_FALSE(m.CanUndo());
  EXPECT_FALSE(m.modified());
  EXPECT_FALSE(m.Undo().changed);
}

TEST(EditModelMoves, WordAndLineMoves) {
  struct Case { CaretMove move; int from; int want; };
  // "one two\r\nthree" : line 1 starts at 9.
  const Case cases[] = {
      {CaretMove::kWordRight, 0, 4},
      {CaretMove::kWordRight, 4, 7},
      {CaretMove::kWordRight, 7, 9},
      {CaretMove::kWordLeft, 9, 4},
      {CaretMove::kWordLeft, 6, 4},
      {CaretMove::kWordLeft, 0, 0},
      {CaretMove::kLeft, 9, 7},
      {CaretMove::kRight, 7, 9},
      {CaretMove::kLineEnd, 1, 7},
      {CaretMove::kLineStart, 12, 9},
      {CaretMove::kDown, 6, 14},   // column 6 stops at the shorter line's end
      {CaretMove::kUp, 11, 2},
      {CaretMove::kTextEnd, 0, 14},
  };
  for (const Case& c : cases) {
    EditModel m = Make("one two\r\nthree", {.multi_line = true});
    m.SetSel(c.from, c.from);
    m.MoveCaret(c.move, false);
    EXPECT_EQ(m.caret(), c.want) << "move " << int(c.move) << " from " << c.from;
  }
}

TEST(EditModelMoves, ShiftExtendsAndPlainLeftCollapses) {
  EditModel m = Make("abcdef");
  m.SetSel(2, 2);
  m.MoveCaret(CaretMove::kRight, true);
  m.MoveCaret(CaretMove::kRight, true);
  EXPECT_EQ(m.SelectedText(), "cd");
  m.MoveCaret(CaretMove::kLeft, false);
  EXPECT_FALSE(m.HasSelection());
  EXPECT_EQ(m.caret(), 2);
  m.SelectWordAt(1);
  EXPECT_EQ(m.SelectedText(), "abcdef");
}

TEST(EditModelLines, IndexLengthAndScrolling) {
  EditModel m = Make("a\r\nbb\r\n\r\ncccc", {.multi_line = true});
  EXPECT_EQ(m.LineCount(), 4);
  EXPECT_EQ(m.LineIndex(1), 3);
  EXPECT_EQ(m.LineIndex(4), -1);
  EXPECT_EQ(m.LineLength(2), 0);
  EXPECT_EQ(m.Line(3), "cccc");
  EXPECT_EQ(m.LineFromChar(5), 1);
  EXPECT_EQ(m.LineFromChar(99), 3);
  m.SetVisibleLines(2);
  m.SetSel(10, 10);
  m.EnsureCaretVisible(nullptr, 0);
  EXPECT_EQ(m.first_line(), 2);
  EXPECT_EQ(m.ScrollLines(5), 1);
  EXPECT_EQ(m.ScrollLines(-9), -3);

  // Taking the lines out pulls the view up with them.
  m.SelectAll();
  m.DeleteBack();
  EXPECT_EQ(m.first_line(), 0);

  EditModel single = Make("a\r\nb");
  EXPECT_EQ(single.LineCount(), 1);
}

TEST(EditModelLines, WrapBreaksAfterSpacesAndCutsLongWords) {
  auto width = [](std::string_view s) { return static_cast<int>(s.size()); };
  struct Case { std::string text; int px; std::vector<int> starts; };
  const Case cases[] = {
      {"hello world again", 10, {0, 6, 12}},
      {"abcdefghijklmnop", 5, {0, 5, 10, 15}},
      {"ab\r\ncd", 10, {0, 4}},
      {"ab   cd", 3, {0, 5}},          // spaces at the break stay on the first line
      {"one two\r\n\r\nx", 4, {0, 4, 9, 11}},
  };
  for (const Case& c : cases) {
    EditModel m = Make(c.text, {.multi_line = true});
    m.SetWrap(width, c.px);
    std::vector<int> starts;
    for (int i = 0; i < m.LineCount(); ++i) starts.push_back(m.LineIndex(i));
    EXPECT_EQ(starts, c.starts) << c.text;
  }
  EditModel m = Make("hello world again", {.multi_line = true});
  m.SetWrap(width, 10);
  EXPECT_EQ(m.LineLength(0), 6);
  EXPECT_EQ(m.Line(2), "again");
  m.SetSel(8, 8);
  m.MoveCaret(CaretMove::kDown, false);
  EXPECT_EQ(m.caret(), 14);
  m.SetWrap(nullptr, 0);
  EXPECT_EQ(m.LineCount(), 1);
}

TEST(EditModelLines, HorizontalScrollFollowsTheCaret) {
  auto width = [](std::string_view s) { return static_cast<int>(s.size()) * 10; };
  EditModel m = Make(std::string(30, 'x'));
  m.SetSel(30, 30);
  m.EnsureCaretVisible(width, 100);
  EXPECT_GT(m.scroll_x(), 200);
  EXPECT_LE(m.scroll_x(), 300);
  m.SetSel(0, 0);
  m.EnsureCaretVisible(width, 100);
  EXPECT_EQ(m.scroll_x(), 0);
}

}  // namespace
}  // namespace qmk::platform::ui::controls
