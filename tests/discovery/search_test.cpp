// search_test.cpp: the configuration search: its model decision, byte 49, and the search of a
// port on the in-memory line.
#include <gtest/gtest.h>

#include "discovery/search.h"
#include "discovery/probe_settings.h"
#include "memory_scanner.h"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

using namespace qmk::testing;
using platform::serial::MemoryPortOpener;

const uint8_t* Data(const std::string& s) { return reinterpret_cast<const uint8_t*>(s.data()); }

TEST(DecideModel, TableRowsAndTheirEdges) {
  struct Case { char b1, b3, b4, b44; int selected; int model; bool fast; };
  for (const Case c : {
           Case{'5', '0', '5', '-', 0, 512, true},     // below '1'
           Case{'5', '1', '1', 'm', 0, 509, false},    // model digit outside 2-4, marker
           Case{'5', '3', '5', '-', 0, 511, true},
           Case{'5', '3', '5', '-', 518, 518, true},   // keeps 518 when it is selected
           Case{'0', '2', '1', '-', 0, 511, true},     // outside 2-4: byte 1 not asked
           Case{'0', '2', '2', 'm', 0, 509, false},    // inside 2-4, marker
           Case{'5', '2', '4', '-', 0, 511, true},     // inside, byte 1 '5'
           Case{'9', '1', '3', '-', 518, 518, true},
           Case{'4', '3', '2', '-', 518, 510, false},  // inside, byte 1 below '5'
           Case{'5', '7', '5', 'm', 0, 513, true},
           Case{'5', '4', '5', 'm', 0, 512, true},
           Case{'5', '9', '5', '-', 0, 512, true},
           Case{'5', 'A', '5', '-', 0, 512, true}}) {
    const std::string reply = StatusLine52(c.b1, c.b3, c.b4, c.b44);
    const ModelDecision d = DecideModel(Data(reply), c.selected);
    EXPECT_EQ(d.model, c.model) << c.b1 << c.b3 << c.b4 << c.b44;
    EXPECT_EQ(d.fast, c.fast) << c.b1 << c.b3 << c.b4 << c.b44;
  }
}

// Reply bytes compare as signed characters: a high byte counts as below '0'.
TEST(DecideModel, HighBytesCountAsLow) {
  const std::string group_high = StatusLine52('5', '\xB3');
  EXPECT_EQ(DecideModel(Data(group_high), 0).model, 512);
  const std::string speed_high = StatusLine52('\xB5', '2', '3');
  EXPECT_EQ(DecideModel(Data(speed_high), 0).model, 510);
}

TEST(OptionStates, ByteFortyNineAsOneHexDigit) {
  struct Case { char b49; int bar_code, printer; };
  for (const Case c : {Case{'8', 1, 2}, Case{'4', 2, 1}, Case{'0', 2, 2},
                       Case{'C', 2, 2},  // the digit is compared whole, not bit by bit
                       Case{'c', 2, 2}, Case{'9', 2, 2}, Case{'x', 2, 2}, Case{'\x88', 2, 2}}) {
    const std::string reply = StatusLine52('5', '3', '5', '-', '7', c.b49);
    const OptionStates s = OptionStatesFromReply(Data(reply));
    EXPECT_EQ(s.bar_code, c.bar_code) << c.b49;
    EXPECT_EQ(s.printer, c.printer) << c.b49;
  }
}

TEST(BaudList, SixRatesAndTheFastOne) {
  EXPECT_EQ(BaudList(false), (std::vector<uint32_t>{1200, 2400, 4800, 9600, 19200, 38400}));
  EXPECT_EQ(BaudList(true).back(), 115200u);
}

class Search : public OnMemoryLine {
 protected:
  Search() : OnMemoryLine("\\\\.\\COM3") {}
};

TEST_F(Search, FindsTheSettingAndDecodes) {
  const LineSettings at{4800, 8, 1, Parity::kOdd};
  line_->answer = StatusScanner(at, StatusLine52('5', '7', '5', '-', '7', '4'));
  const SearchOutcome out = SearchPort("COM3", BaudList(false), 511);
  ASSERT_EQ(out.code, kConfigured);
  EXPECT_EQ(out.setting, at);
  EXPECT_EQ(out.model.model, 513);
  EXPECT_EQ(out.options.printer, 1);
  EXPECT_EQ(out.options.bar_code, 2);
  const auto order = SearchOrder(BaudList(false));
  const auto found = std::find(order.begin(), order.end(), at);
  EXPECT_EQ(line_->applied, std::vector<LineSettings>(order.begin(), found + 1));
  EXPECT_FALSE(line_->open);
}

TEST_F(Search, NothingAnswersOrSettingRefused) {
  SearchOutcome out = SearchPort("COM3", BaudList(true), 0);
  EXPECT_EQ(out.code, kNotConfigured);
  EXPECT_EQ(line_->applied, SearchOrder(BaudList(true)));
  EXPECT_FALSE(line_->open);

  line_->applied.clear();
  line_->refuses = [](const LineSettings& s) { return s.baud == 115200; };
  out = SearchPort("COM3", BaudList(true), 0);
  EXPECT_EQ(out.code, kNotConfigured);
  EXPECT_EQ(line_->applied.size(), 1u);
  EXPECT_FALSE(line_->open) << "the search closes its port on a refused setting";
}

TEST_F(Search, PortThatDoesNotOpenSaysWhy) {
  const SearchOutcome out = SearchPort("COM11", BaudList(false), 0);
  EXPECT_EQ(out.code, kNotConfigured);
  EXPECT_EQ(out.open_error, "Error opening \\\\.\\COM11. No such file or directory");
  line_->open = true;
  EXPECT_EQ(SearchPort("COM3", BaudList(false), 0).open_error,
            "Error opening \\\\.\\COM3. Device or resource busy");
}

}  // namespace
}  // namespace qmk::discovery
