// template_reader_test.cpp: the text form of dialog templates, its errors, style names, the
// built-in table and the template source.
#include <gmock/gmock.h>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog_template.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

TEST(TemplateReader, ReadsHeaderAndControlsWithKindDefaults) {
  DialogTemplate t;
  TemplateError e;
  ASSERT_TRUE(ParseDialogTemplate(R"(# comment
dialog 77
caption "Say \"hi\"\tnow"
position 1 -2 200 100
font "DejaVu Sans" 9
style WS_POPUP|WS_CAPTION | DS_CENTER
exstyle WS_EX_TOOLWINDOW

label -1 "&Name:" 4 5 40 8   # trailing comment
edit 1001 "" 50 4 100 12 style ES_NUMBER not WS_TABSTOP
radio IDOK "Go" 1 2 3 4 style WS_GROUP exstyle 0x200
control "My.Class" 9 "x" 0 0 0 0 style 0x10
end
)", &t, &e)) << e.line << ": " << e.message;
  EXPECT_EQ(t.id, 77);
  EXPECT_EQ(t.caption, "Say \"hi\"\tnow");
  EXPECT_EQ(t.x, 1);
  EXPECT_EQ(t.y, -2);
  EXPECT_EQ(t.cx, 200);
  EXPECT_EQ(t.font_points, 9);
  EXPECT_EQ(t.style, WS_POPUP | WS_CAPTION | DS_CENTER);
  EXPECT_EQ(t.ex_style, WS_EX_TOOLWINDOW);
  ASSERT_EQ(t.items.size(), 4u);
  EXPECT_EQ(t.items[0].class_name, kStaticClass);
  EXPECT_EQ(t.items[0].id, -1);
  EXPECT_EQ(t.items[0].style, SS_LEFT | WS_GROUP);
  EXPECT_EQ(t.items[1].class_name, kEditClass);
  EXPECT_EQ(t.items[1].style, ES_LEFT | ES_AUTOHSCROLL | ES_NUMBER);
  EXPECT_EQ(t.items[1].ex_style, WS_EX_CLIENTEDGE);
  EXPECT_EQ(t.items[2].id, IDOK);
  EXPECT_EQ(t.items[2].style, BS_AUTORADIOBUTTON | WS_GROUP);
  EXPECT_EQ(t.items[2].ex_style, 0x200u);
  EXPECT_EQ(t.items[3].class_name, "My.Class");
  EXPECT_EQ(t.items[3].style, 0x10u);
}

TEST(TemplateReader, ErrorsNameTheLineAndTheProblem) {
  struct Case {
    const char* text;
    int line;
    const char* message;
  };
  const Case cases[] = {
      {"", 0, "the template is empty"},
      {"caption \"x\"\n", 1, "the template must start with \"dialog ID\""},
      {"dialog x\nend\n", 1, "expected a number for the dialog id, found \"x\""},
      {"dialog 1\n", 0, "missing \"end\""},
      {"dialog 1\nend\nlabel -1 \"\" 0 0 1 1\n", 3, "text after \"end\""},
      {"dialog 1\nwidget 1 \"\" 0 0 1 1\nend\n", 2, "unknown keyword \"widget\""},
      {"dialog 1\ncaption \"open\nend\n", 2, "the string is not closed"},
      {"dialog 1\ncaption \"a\\qb\"\nend\n", 2, "unknown escape \\q in a string"},
      {"dialog 1\nposition 0 0 -1 5\nend\n", 2, "the width is out of range (0 to 32767)"},
      {"dialog 1\nposition 0 0 5\nend\n", 2, "expected position X Y WIDTH HEIGHT"},
      {"dialog 1\nfont \"F\" 0\nend\n", 2, "the point size is out of range (1 to 72)"},
      {"dialog 1\nstyle WS_NOPE\nend\n", 2, "unknown style in \"WS_NOPE\""},
      {"dialog 1\nstyle\nend\n", 2, "a style keyword needs a value"},
      {"dialog 1\nedit 1 \"\" 0 0 1\nend\n", 2, "expected edit ID \"TEXT\" X Y WIDTH HEIGHT"},
      {"dialog 1\nedit 70000 \"\" 0 0 1 1\nend\n", 2,
       "the control id is out of range (-1 to 65535)"},
      {"dialog 1\nedit 1 text 0 0 1 1\nend\n", 2, "expected the control's text in quotes"},
      {"dialog 1\nedit 1 \"\" 0 0 1 1 flags 3\nend\n", 2, "unexpected \"flags\""},
      {"dialog 1\ncontrol 5 \"\" 0 0 1 1\nend\n", 2,
       "expected control \"CLASS\" ID \"TEXT\" X Y WIDTH HEIGHT"},
      {"dialog 1\nend extra\n", 2, "\"end\" stands alone"},
      {"dialog 1\n\"quoted\"\nend\n", 2, "a line must start with a keyword"},
  };
  for (const Case& c : cases) {
    DialogTemplate t;
    TemplateError e;
    EXPECT_FALSE(ParseDialogTemplate(c.text, &t, &e)) << c.text;
    EXPECT_EQ(e.line, c.line) << c.text;
    EXPECT_EQ(e.message, c.message) << c.text;
  }
}

TEST(TemplateReader, TooManyControlsIsAnError) {
  std::string text = "dialog 1\n";
  for (int i = 0; i < 1025; ++i) text += "label -1 \"\" 0 0 1 1\n";
  text += "end\n";
  TemplateError e;
  EXPECT_FALSE(ParseDialogTemplate(text, nullptr, &e));
  EXPECT_EQ(e.line, 1026);
  EXPECT_EQ(e.message, "more than 1024 controls");
}

TEST(TemplateReader, WindowsLineEndsAndMissingLastNewlineAreFine) {
  DialogTemplate t;
  EXPECT_TRUE(ParseDialogTemplate("dialog 3\r\ncaption \"c\"\r\nend", &t, nullptr));
  EXPECT_EQ(t.caption, "c");
}

TEST(StyleWord, NamesNumbersAndFailures) {
  struct Case {
    const char* text;
    bool ok;
    uint32_t value;
  };
  for (const Case c : {Case{"WS_CHILD", true, WS_CHILD}, {"WS_CHILD | 0x1", true, WS_CHILD | 1},
                       {" 12 ", true, 12}, {"0xFFFFFFFF", true, 0xFFFFFFFFu},
                       {"0x100000000", false, 0}, {"ws_child", false, 0}, {"WS_CHILD |", false, 0},
                       {"", false, 0}, {"-1", false, 0}}) {
    uint32_t v = 0;
    EXPECT_EQ(ParseStyleWord(c.text, &v), c.ok) << c.text;
    if (c.ok) {
      EXPECT_EQ(v, c.value) << c.text;
    }
  }
}

TEST(BuiltinTemplates, SampleDialogIsCompiledInAndReads) {
  bool found = false;
  for (const BuiltinTemplate& t : BuiltinTemplates()) {
    DialogTemplate parsed;
    TemplateError e;
    EXPECT_TRUE(ParseDialogTemplate(t.text, &parsed, &e))
        << t.id << "." << t.tag << " line " << e.line << ": " << e.message;
    EXPECT_EQ(parsed.id, t.id) << "the file name and the dialog line disagree";
    EXPECT_NE(t.language, 0) << t.tag;
    if (t.id == 9000 && t.language == kLangEnglishUS) found = true;
  }
  EXPECT_TRUE(found);
}

TEST(TemplateSource, FallsBackToEnglishAndCanBeReplaced) {
  EXPECT_TRUE(FindTemplateText(9000, LanguageFromTag("de")).has_value());
  EXPECT_FALSE(FindTemplateText(1, kLangEnglishUS).has_value());
  auto old = SetTemplateSource([](int id, uint16_t lang) -> std::optional<std::string> {
    return std::to_string(id) + "/" + std::to_string(lang);
  });
  EXPECT_EQ(FindTemplateText(5, 1031).value_or(""), "5/1031");
  SetTemplateSource(std::move(old));
  EXPECT_FALSE(FindTemplateText(5, 1031).has_value());
}

TEST(Languages, TagsAndIdentifiersRoundTrip) {
  struct Case {
    const char* tag;
    uint16_t lang;
  };
  for (const Case c : {Case{"en", 1033}, {"de", 1031}, {"he", 1037}, {"zh-TW", 1028}}) {
    EXPECT_EQ(LanguageFromTag(c.tag), c.lang);
    EXPECT_EQ(TagFromLanguage(c.lang), c.tag);
  }
  EXPECT_EQ(LanguageFromTag("xx"), 0);
  EXPECT_TRUE(TagFromLanguage(1).empty());
}

}  // namespace
}  // namespace qmk::testing
