// lexer_test.cpp: the formula lexer's token codes and texts, blank tokens, comments, number
// and string forms, and the reader's overrun, line counting and SeekTo.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "toolkit/formula/scanner.h"

namespace qmk::toolkit::formula {
namespace {

struct Token {
  int code;
  std::string text;
  bool operator==(const Token&) const = default;
};

std::ostream& operator<<(std::ostream& os, const Token& t) { return os << t.code << ":\"" << t.text << '"'; }

// Every token of `text` up to the end code.
std::vector<Token> Lex(const std::string& text) {
  CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  std::vector<Token> tokens;
  for (int guard = 0; guard < 100; ++guard) {
    const int code = scanner.NextToken();
    if (code == kTokenEnd) break;
    tokens.push_back({code, scanner.GetTokenText()});
  }
  return tokens;
}

const Token kBlank{' ', " "};

TEST(FormulaLexer, TokenTable) {
  struct Case {
    const char* text;
    int code;
    const char* token;
  };
  for (const Case c : {Case{"1.5", kTokenReal, "1.5e0"}, {"42", kTokenInteger, "42"},
                       {"\"s\"", kTokenString, "s"}, {"name", kTokenIdentifier, "name"},
                       {">=", kTokenGreaterOrEqual, ">="}, {"<=", kTokenLessOrEqual, "<="},
                       {"<>", kTokenNotEqual, "<>"}, {"+", '+', "+"}, {"-", '-', "-"},
                       {"*", '*', "*"}, {"/", '/', "/"}, {"%", '%', "%"}, {"&", '&', "&"},
                       {"^", '^', "^"}, {"=", '=', "="}, {">", '>', ">"}, {"<", '<', "<"},
                       {":", ':', ":"}, {"(", '(', "("}, {")", ')', ")"}, {",", ',', ","},
                       {"|", '|', "|"}, {"!", '!', "!"}, {"~", '~', "~"}, {".", '.', "."},
                       {"\xe9", 0xe9, "\xe9"}}) {
    const std::vector<Token> tokens = Lex(c.text);
    ASSERT_FALSE(tokens.empty()) << c.text;
    EXPECT_EQ(tokens[0], (Token{c.code, c.token})) << c.text;
  }
}

TEST(FormulaLexer, BlanksBecomeOneTokenAfterTheFirstToken) {
  EXPECT_EQ(Lex("  =1"), (std::vector<Token>{{'=', "="}, {kTokenInteger, "1"}, kBlank}));
  EXPECT_EQ(Lex("=1 \t\r\n 2"),
            (std::vector<Token>{{'=', "="}, {kTokenInteger, "1"}, kBlank, {kTokenInteger, "2"}, kBlank}));
  // Blanks before a colon take the blanks behind it with them.
  EXPECT_EQ(Lex("=A :  B"), (std::vector<Token>{{'=', "="}, {kTokenIdentifier, "A"}, {':', ":"},
                                                {kTokenIdentifier, "B"}, kBlank}));
  EXPECT_EQ(Lex("=A:  B"), (std::vector<Token>{{'=', "="}, {kTokenIdentifier, "A"}, {':', ":"}, kBlank,
                                               {kTokenIdentifier, "B"}, kBlank}));
  EXPECT_TRUE(Lex("").empty());
  EXPECT_TRUE(Lex("    ").empty());
}

TEST(FormulaLexer, TheOverrunEndsEveryTextWithABlankToken) {
  // "=1" reads as "=1" and thirteen blanks: one blank token, then the end.
  CExtFormulaScanner scanner;
  scanner.SetText("=1");
  EXPECT_EQ(scanner.NextToken(), '=');
  EXPECT_EQ(scanner.NextToken(), kTokenInteger);
  EXPECT_EQ(scanner.NextToken(), kTokenSpace);
  EXPECT_EQ(scanner.GetPosition(), 2 + CExtFormulaScanner::kOverrun);
  EXPECT_TRUE(scanner.IsEnd());
  EXPECT_EQ(scanner.NextToken(), kTokenEnd);
  EXPECT_EQ(scanner.NextToken(), kTokenEnd);
  EXPECT_EQ(scanner.GetTokenCount(), 3);
}

TEST(FormulaLexer, Comments) {
  EXPECT_EQ(Lex("=1/*x*/+2"), (std::vector<Token>{{'=', "="}, {kTokenInteger, "1"}, {'+', "+"},
                                                  {kTokenInteger, "2"}, kBlank}));
  // The blank before the comment and the line feed behind it are two blank tokens.
  EXPECT_EQ(Lex("=1 // to the end\n+2"), (std::vector<Token>{{'=', "="}, {kTokenInteger, "1"}, kBlank, kBlank,
                                                              {'+', "+"}, {kTokenInteger, "2"}, kBlank}));
  EXPECT_EQ(Lex("=1/2"), (std::vector<Token>{{'=', "="}, {kTokenInteger, "1"}, {'/', "/"},
                                             {kTokenInteger, "2"}, kBlank}));
  CExtFormulaScanner scanner;
  scanner.SetText("=1/*");
  scanner.NextToken();
  scanner.NextToken();
  EXPECT_THROW(scanner.NextToken(), FormulaSyntaxError);
}

TEST(FormulaLexer, NumberForms) {
  struct Case {
    const char* text;
    int code;
    const char* token;
    const char* next;  // the text of the token after the number, "" for the final blank
  };
  for (const Case c : {
           // Octal shape: "0" then digits without a 9.
           Case{"017", kTokenInteger, "017", " "},
           {"08", kTokenInteger, "08", " "},
           {"00", kTokenInteger, "00", " "},
           {"0", kTokenInteger, "0", " "},
           // "0" followed by a 9 is "0" alone; the 9 is the next token.
           {"09", kTokenInteger, "0", "9"},
           // A 9 among the digits makes the text plain decimal.
           {"019", kTokenInteger, "019", " "},
           {"123", kTokenInteger, "123", " "},
           {"0x1aF", kTokenInteger, "0x1aF", " "},
           {"0X", kTokenInteger, "0X", " "},
           {"0xg", kTokenInteger, "0x", "g"},
           // Real forms, normalised.
           {"1.5", kTokenReal, "1.5e0", " "},
           {"1.", kTokenReal, "1.0e0", " "},
           {".5", kTokenReal, "0.5e0", " "},
           {"1e3", kTokenReal, "1.0e3", " "},
           {"1E+3", kTokenReal, "1.0e3", " "},
           {"1e-3", kTokenReal, "1.0e-3", " "},
           {"2.5e05", kTokenReal, "2.5e5", " "},
           {"2.5e005", kTokenReal, "2.5e05", " "},
           {"2.5e-05", kTokenReal, "2.5e-5", " "},
           // The exponent's one leading zero goes even when it is the only digit.
           {"1e0", kTokenReal, "1.0e", " "},
           {"1e00", kTokenReal, "1.0e0", " "},
           {"0.0", kTokenReal, "0.0e0", " "},
           {"0e1", kTokenReal, "0.0e1", " "},
           // An exponent with no digits is accepted bare.
           {"1e", kTokenReal, "1.0e", " "},
           {"1e+", kTokenReal, "1.0e", " "},
           {"1e-", kTokenReal, "1.0e-", " "},
           {".e5", kTokenReal, "0.0e5", " "},
           // Digits followed by a letter other than e or x: a real, then a name.
           {"12x", kTokenReal, "12.0e0", "x"},
           {"1.2.3", kTokenReal, "1.2e0", "0.3e0"},
       }) {
    const std::vector<Token> tokens = Lex(std::string("=") + c.text);
    ASSERT_GE(tokens.size(), 3u) << c.text;
    EXPECT_EQ(tokens[1], (Token{c.code, c.token})) << c.text;
    EXPECT_EQ(tokens[2].text, c.next) << c.text;
  }
}

TEST(FormulaLexer, Identifiers) {
  EXPECT_EQ(Lex("=$A$1")[1], (Token{kTokenIdentifier, "$A"}));
  EXPECT_EQ(Lex("=$A$1")[2], (Token{kTokenIdentifier, "$1"}));
  EXPECT_EQ(Lex("=Sheet_1!B2")[1], (Token{kTokenIdentifier, "Sheet_1!B2"}));
  EXPECT_EQ(Lex("=_a.b")[1], (Token{kTokenIdentifier, "_a"}));
}

TEST(FormulaLexer, StringEscapes) {
  struct Case {
    const char* text;
    const char* value;
  };
  for (const Case c : {Case{R"("ab")", "ab"}, {R"("")", ""}, {R"("a\nb")", "a\nb"}, {R"("\r\t")", "\r\t"},
                       {R"("\"")", "\""}, {R"("\\")", "\\"}, {R"("\q")", "q"}, {"\"a b  c\"", "a b  c"}}) {
    const std::vector<Token> tokens = Lex(std::string("=") + c.text);
    ASSERT_GE(tokens.size(), 2u) << c.text;
    EXPECT_EQ(tokens[1], (Token{kTokenString, c.value})) << c.text;
  }
  for (const char* bad : {R"(="\0")", R"(="\9")", R"(="\x41")", R"(="\X41")", "=\"open", "=\"ends\\"}) {
    CExtFormulaScanner scanner;
    scanner.SetText(bad);
    scanner.NextToken();
    EXPECT_THROW(scanner.NextToken(), FormulaSyntaxError) << bad;
  }
}

TEST(FormulaReader, CountsLinesAndColumnsBothWays) {
  CExtFormulaScanner scanner;
  scanner.SetText("ab\ncd\n\nx");
  scanner.SeekTo(4);  // on "d"
  EXPECT_EQ(scanner.GetLine(), 1);
  EXPECT_EQ(scanner.GetColumn(), 1);
  scanner.SeekTo(8);
  EXPECT_EQ(scanner.GetLine(), 3);
  EXPECT_EQ(scanner.GetColumn(), 1);
  scanner.SeekTo(3);  // back over two line feeds, to the start of "cd"
  EXPECT_EQ(scanner.GetLine(), 1);
  EXPECT_EQ(scanner.GetColumn(), 0);
  scanner.SeekTo(2);
  EXPECT_EQ(scanner.GetLine(), 0);
  EXPECT_EQ(scanner.GetColumn(), 2);
  // Targets outside 0..length+13 are ignored.
  scanner.SeekTo(-1);
  EXPECT_EQ(scanner.GetPosition(), 2);
  scanner.SeekTo(8 + 14);
  EXPECT_EQ(scanner.GetPosition(), 2);
  scanner.SeekTo(8 + 13);
  EXPECT_TRUE(scanner.IsEnd());
  EXPECT_EQ(scanner.GetColumn(), 1 + 13);
}

TEST(FormulaReader, ReadsBlanksPastTheEnd) {
  CExtFormulaScanner scanner;
  scanner.SetText("a");
  EXPECT_EQ(scanner.ReadChar(), 'a');
  for (int i = 0; i < CExtFormulaScanner::kOverrun; ++i) {
    EXPECT_FALSE(scanner.IsEnd());
    EXPECT_EQ(scanner.ReadChar(), ' ');
  }
  EXPECT_TRUE(scanner.IsEnd());
  EXPECT_EQ(scanner.ReadChar(), ' ');
  EXPECT_EQ(scanner.GetPosition(), 1 + CExtFormulaScanner::kOverrun);
}

}  // namespace
}  // namespace qmk::toolkit::formula
