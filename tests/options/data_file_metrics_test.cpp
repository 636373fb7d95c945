// Reading a scan's data file for its last serial: real files in a temporary folder, including
// one written by the scanning tool's own writer, and files cut short, garbled or huge.
#include "options/data_file_metrics.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "data_file.h"
#include "options/option_services.h"
#include "options/scanning_options_model.h"
#include "support/scoped_env.h"

namespace qmk::options {
namespace {

const std::string kHeader =
    "# qmkscan data file: one record per sheet; cells in hex, one byte per cell as sent\n";

// A whole record: two front lines of three cells, one back line of three cells.
std::string Record(unsigned serial) {
  return "sheet " + std::to_string(serial) + " front 2 3 back 1 3\nF 0a0b0c\nF 00ff10\nB 111213\n";
}

class DataFileTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& content) {
    const std::string path = dir_.str() + "/" + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  DataFileRead Read(const std::string& content, DataFileMetrics& m) {
    return ReadDataFileMetrics(Write("scan.dat", content), m);
  }

  qmk::testing::TempDir dir_;
};

TEST_F(DataFileTest, WholeRecordsGiveTheLastSerial) {
  struct Case {
    const char* name;
    std::string content;
    unsigned records, first, last, damaged;
  };
  const Case cases[] = {
      {"empty file", "", 0, 0, 0, 0},
      {"header only", kHeader, 0, 0, 0, 0},
      {"one record", kHeader + Record(7), 1, 7, 7, 0},
      {"many records", kHeader + Record(1) + Record(2) + Record(3) + Record(41), 4, 1, 41, 0},
      {"last in file order, not the largest", kHeader + Record(90) + Record(12), 2, 90, 12, 0},
      {"no cell lines", kHeader + "sheet 5 front 0 64 back 0 64\n", 1, 5, 5, 0},
      {"lines ended by carriage return and newline",
       "# qmkscan data file\r\nsheet 3 front 1 2 back 0 2\r\nF 0a0b\r\nsheet 4 front 0 2 back 0 2\r\n", 2, 3, 4, 0},
      {"bar code", kHeader + "sheet 8 front 1 1 back 0 1 barcode AB 12\nF 7f\n", 1, 8, 8, 0},
      {"last record cut short", kHeader + Record(1) + Record(2) + "sheet 3 front 2 3 back 1 3\nF 0a0b0c\n",
       2, 1, 2, 1},
      {"last line without its newline", kHeader + Record(4) + Record(5).substr(0, Record(5).size() - 1),
       1, 4, 4, 1},
      {"cell line too short", kHeader + Record(1) + "sheet 2 front 1 3 back 0 3\nF 0a0b\n", 1, 1, 1, 1},
      {"cell line not hex", kHeader + Record(1) + "sheet 2 front 1 3 back 0 3\nF 0a0bzz\n", 1, 1, 1, 1},
      {"back line where a front one belongs", kHeader + "sheet 2 front 1 3 back 0 3\nB 0a0b0c\n", 0, 0, 0, 1},
      {"garbled header", kHeader + Record(6) + "sheet x7 front 2 3 back 1 3\nF 0a0b0c\nF 00ff10\nB 111213\n",
       1, 6, 6, 4},
      {"serial zero", kHeader + Record(6) + "sheet 0 front 0 1 back 0 1\n", 1, 6, 6, 1},
      {"serial of ten digits", kHeader + Record(6) + "sheet 1234567890 front 0 1 back 0 1\n", 1, 6, 6, 1},
      {"more cells than a side holds", kHeader + Record(6) + "sheet 7 front 101 100 back 0 1\n", 1, 6, 6, 1},
      {"trailing blank", kHeader + Record(6) + "sheet 7 front 0 1 back 0 1 \n", 1, 6, 6, 1},
      {"record cut by the next header", kHeader + "sheet 1 front 2 3 back 0 3\nF 0a0b0c\n" + Record(2), 1, 2, 2, 1},
      {"damage between whole records", kHeader + Record(1) + "\x01\x02garbage\n" + Record(2), 2, 1, 2, 1},
      {"a zero byte in a cell line", kHeader + Record(1) + std::string("sheet 2 front 1 1 back 0 1\nF 0") + '\0' + "\n",
       1, 1, 1, 1},
  };
  for (const Case& c : cases) {
    DataFileMetrics m;
    ASSERT_EQ(Read(c.content, m), DataFileRead::kRead) << c.name;
    EXPECT_EQ(m.records, c.records) << c.name;
    EXPECT_EQ(m.first_serial, c.first) << c.name;
    EXPECT_EQ(m.last_serial, c.last) << c.name;
    EXPECT_EQ(m.damaged, c.damaged) << c.name;
  }
}

TEST_F(DataFileTest, FilesThatGiveNoSerial) {
  DataFileMetrics m;
  EXPECT_EQ(ReadDataFileMetrics(dir_.str() + "/none.dat", m), DataFileRead::kMissing);
  EXPECT_EQ(ReadDataFileMetrics(dir_.str(), m), DataFileRead::kUnreadable);  // a folder
  EXPECT_EQ(Read("sheet 1 front 0 1 back 0 1\n", m), DataFileRead::kNotADataFile);
  EXPECT_EQ(Read("\x89PNG\r\n\x1a\n", m), DataFileRead::kNotADataFile);
  EXPECT_EQ(Read(std::string(100000, 'x'), m), DataFileRead::kNotADataFile);
  if (geteuid() != 0) {  // the superuser reads any file
    const std::string path = Write("locked.dat", kHeader + Record(3));
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    EXPECT_EQ(ReadDataFileMetrics(path, m), DataFileRead::kUnreadable);
  }
  EXPECT_EQ(m.last_serial, 0u);
}

TEST_F(DataFileTest, AHugeLineIsSkippedWithoutHoldingIt) {
  // 40 MB of hex on one line, far more than any record's line.
  const std::string content = kHeader + Record(1) + "F " + std::string(40u << 20, 'a') + "\n" + Record(2);
  DataFileMetrics m;
  ASSERT_EQ(Read(content, m), DataFileRead::kRead);
  EXPECT_EQ(m.records, 2u);
  EXPECT_EQ(m.last_serial, 2u);
  EXPECT_EQ(m.damaged, 1u);
}

TEST_F(DataFileTest, ManyRecordsAreReadToTheLast) {
  std::string content = kHeader;
  for (unsigned serial = 1; serial <= 20000; ++serial) content += Record(serial);
  DataFileMetrics m;
  ASSERT_EQ(Read(content, m), DataFileRead::kRead);
  EXPECT_EQ(m.records, 20000u);
  EXPECT_EQ(m.last_serial, 20000u);
}

// The file the scanning tool writes, sheet by sheet, is what the reader reads.
TEST_F(DataFileTest, ReadsWhatTheScanWriterWrites) {
  const std::string path = dir_.str() + "/written.dat";
  qmkscan::DataFile data;
  std::string error;
  ASSERT_TRUE(data.Open(path, error)) << error;
  std::vector<char> front(QMK_OMR_BYTES, '\x5a'), back(QMK_OMR_BYTES, '\x00');
  ASSERT_TRUE(data.Write(1, front.data(), 12, 64, back.data(), 0, 64, "ABC123"));
  ASSERT_TRUE(data.Write(2, front.data(), 156, 64, back.data(), 156, 64, ""));
  ASSERT_TRUE(data.Write(3, front.data(), 48, 8, back.data(), 2, 8, ""));
  data.Close();
  DataFileMetrics m;
  ASSERT_EQ(ReadDataFileMetrics(path, m), DataFileRead::kRead);
  EXPECT_EQ(m.records, 3u);
  EXPECT_EQ(m.last_serial, 3u);
  EXPECT_EQ(m.damaged, 0u);
}

// The running library's services answer the scanner control page from the file.
TEST_F(DataFileTest, TheLibrarysServicesGiveTheLastSerial) {
  OptionServices& services = DefaultOptionServices();
  unsigned last = 99;
  EXPECT_TRUE(services.LastSerialInDataFile(Write("a.dat", kHeader + Record(5) + Record(6)), last));
  EXPECT_EQ(last, 6u);
  EXPECT_TRUE(services.LastSerialInDataFile(Write("b.dat", ""), last));
  EXPECT_EQ(last, 0u);  // nothing scanned yet: the next serial is 1
  last = 99;
  EXPECT_FALSE(services.LastSerialInDataFile(dir_.str() + "/none.dat", last));
  EXPECT_FALSE(services.LastSerialInDataFile(dir_.str(), last));
  EXPECT_FALSE(services.LastSerialInDataFile(Write("c.dat", "not a data file\n"), last));
  EXPECT_EQ(last, 99u);
}

// The page is initialised before the current file name is taken, so in a real run it asks about
// the data folder alone, which holds no serial: the record's serial stands.
TEST_F(DataFileTest, TheScannerControlPageAsksAboutTheDataFolderAlone) {
  Write("batch.dat", kHeader + Record(41));
  build_data record{};
  sct_config config{};
  std::strcpy(record.dataFileName, "batch.dat");
  std::strcpy(record.serialNumberText, "12");
  record.dataFileMode = 2;
  std::strcpy(reinterpret_cast<char*>(config.host_portion), dir_.str().c_str());
  CScanningOptionsMainDlg dialog(record, config, 3, DefaultOptionServices());
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.m_tabScannerControl.m_nSerial, 12u);
  EXPECT_EQ(dialog.m_strCurrentFileName, "batch.dat");
}

}  // namespace
}  // namespace qmk::options
