// The terminal operator: answers read from input, and an unattended end of input.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "frame/terminal_operator.h"

namespace qmk::frame {
namespace {

int Ask(const char* typed, unsigned flags, std::string* shown = nullptr) {
  std::string input(typed);
  std::FILE* in = fmemopen(input.data(), input.size() + 1, "r");
  char* out_text = nullptr;
  size_t out_size = 0;
  std::FILE* out = open_memstream(&out_text, &out_size);
  TerminalOperator op(in, out);
  const int answer = op.MessageBox(nullptr, "Sheet jammed", "Scan", flags, 0);
  std::fclose(in);
  std::fclose(out);
  if (shown) *shown = out_text;
  std::free(out_text);
  return answer;
}

TEST(TerminalOperator, ReadsTheAnswerByItsFirstLetter) {
  struct Case { const char* typed; unsigned flags; int button; };
  for (Case c : {Case{"o\n", 0, 1}, {"c\n", 1, 2}, {"OK\n", 1, 1}, {"x\nc\n", 1, 2},
                 {"  y\n", 4, 6}, {"n\n", 3, 7}, {"r\n", 2, 4}, {"i\n", 2, 5}})
    EXPECT_EQ(Ask(c.typed, c.flags), c.button) << c.typed;
}

TEST(TerminalOperator, EndOfInputStopsRatherThanRepeats) {
  EXPECT_EQ(Ask("", 1), 2);   // OK/Cancel: Cancel
  EXPECT_EQ(Ask("", 4), 7);   // Yes/No: No
  EXPECT_EQ(Ask("", 0), 1);   // a lone OK is still OK
}

TEST(TerminalOperator, ShowsCaptionTextAndChoices) {
  std::string shown;
  Ask("o\n", 0x31, &shown);
  EXPECT_EQ(shown.substr(0, shown.find('?')), "Scan: Sheet jammed\n[o]k / [c]ancel");
}

TEST(TerminalOperator, NoticePrintsItsTextOnceOnOneLine) {
  char* out_text = nullptr;
  size_t out_size = 0;
  std::FILE* out = open_memstream(&out_text, &out_size);
  {
    TerminalOperator op(stdin, out);
    auto notice = op.CreateNotice(nullptr, "Connecting to Scanner.\n\nPlease wait...", false);
    notice->Show(true);
    notice->Show(true);
  }
  std::fclose(out);
  EXPECT_STREQ(out_text, "Connecting to Scanner. Please wait...\n");
  std::free(out_text);
}

TEST(TerminalOperator, FaultListShowsTheDialogsWholeText) {
  std::string input = "c\n";
  std::FILE* in = fmemopen(input.data(), input.size() + 1, "r");
  char* out_text = nullptr;
  size_t out_size = 0;
  std::FILE* out = open_memstream(&out_text, &out_size);
  EXPECT_EQ(TerminalOperator(in, out).ShowScanErrorList({"Sheet jammed", "Double feed"}), 2);
  std::fclose(in);
  std::fclose(out);
  const std::string shown = out_text;
  std::free(out_text);
  EXPECT_EQ(shown.substr(0, shown.find('?')),
            "Scan Error: The Following Errors Occurred:\n  Sheet jammed\n  Double feed\n"
            "Correct conditions described above and rescan sheet if necessary.  Make sure you are "
            "scanning the proper sheet.\n[o]k / [c]ancel");
}

}  // namespace
}  // namespace qmk::frame
