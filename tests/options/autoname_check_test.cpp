// The template check of the common services, and how its refusals reach the user.
#include <gtest/gtest.h>

#include <string>

#include "frame/module_state_guard.h"
#include "frame/scripted_operator.h"
#include "qmk/QmkGen.h"

namespace {

class TemplateCheckTest : public ::testing::Test {
 protected:
  void SetUp() override {
    qmk::frame::ModuleStateGuard connect;  // entering the module connects the message sink
    previous_ = qmk::frame::SetOperator(&op_);
  }
  void TearDown() override { qmk::frame::SetOperator(previous_); }

  qmk::frame::ScriptedOperator op_;
  qmk::frame::Operator* previous_ = nullptr;
};

TEST_F(TemplateCheckTest, AcceptsEveryCodeInEitherCase) {
  for (const char* t : {"*M*D.dat", "Scan*S.dat", "AP*J-*Y.dat", "*d*h*j*m*n*s*t*w*y", "plain.dat",
                        "*DAY", "a b (c) & d.dat"}) {
    EXPECT_EQ(GenCheckAutoNameCString(t, nullptr), 1) << t;
  }
  EXPECT_TRUE(op_.events().empty());
}

TEST_F(TemplateCheckTest, RefusesWhatWouldHangOrMakeABadName) {
  struct Case {
    std::string name_template;
    const char* why;  // a piece of the message the user sees
  };
  const std::string long_literal(260, 'a');
  std::string long_codes;
  for (int i = 0; i < 87; ++i) long_codes += "*S";  // 174 characters that make 261
  const Case cases[] = {
      {"", "is empty"},
      {"Scan*", "not followed by a code letter"},
      {"Scan*Q.dat", "not followed by a code letter"},
      {"**D", "not followed by a code letter"},
      {"*", "not followed by a code letter"},
      {"a/b.dat", "the character '/'"},
      {"a\\b.dat", "the character '\\'"},
      {"what?.dat", "the character '?'"},
      {"a:b", "the character ':'"},
      {"a|b<c>", "the character '|'"},
      {"tab\there", "the control character 0x09"},
      {long_literal, "names of 260 characters"},
      {long_codes, "names of 261 characters"},
  };
  for (const Case& c : cases) {
    op_.ClearEvents();
    EXPECT_EQ(GenCheckAutoNameCString(c.name_template.c_str(), nullptr), 0) << c.name_template;
    ASSERT_EQ(op_.events().size(), 1u) << c.name_template;
    EXPECT_NE(op_.events()[0].find(c.why), std::string::npos) << op_.events()[0];
    EXPECT_NE(op_.events()[0].find("flags=0x30"), std::string::npos);
  }
}

TEST_F(TemplateCheckTest, TheLongestNameThatFitsIsAccepted) {
  std::string t(256, 'a');
  EXPECT_EQ(GenCheckAutoNameCString((t + "*S").c_str(), nullptr), 1);  // 259 characters
  EXPECT_EQ(GenCheckAutoNameCString((t + "a*S").c_str(), nullptr), 0);
}

TEST_F(TemplateCheckTest, ANullTemplateIsRefusedWithAMessage) {
  EXPECT_EQ(GenCheckAutoNameCString(nullptr, nullptr), 0);
  EXPECT_EQ(op_.events().size(), 1u);
}

}  // namespace
