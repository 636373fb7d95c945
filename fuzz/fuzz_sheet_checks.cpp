// fuzz_sheet_checks.cpp: random status words, jam bits, line counts, cell bytes and sheet
// descriptions through the fault list and every check of a read sheet.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <vector>

#include "qmk/QmkLink.h"
#include "qmk/QmkLinkSim.h"
#include "scanner/error_list.h"
#include "scanner/form_id_search.h"
#include "scanner/verification.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider in(data, size);
  QlkSimReset();
  QlkSimSetJournal(0);
  feat_mask feat;
  const uint32_t word = in.ConsumeIntegral<uint32_t>();
  static_assert(sizeof feat == sizeof word);
  __builtin_memcpy(&feat, &word, sizeof word);
  qlkdata_rec* session = nullptr;
  QlkOpen(&feat, &session);
  QlkSetTuneParams(nullptr, 52, in.ConsumeIntegralInRange<int>(0, 12));

  static qlkdata_rec rec;
  rec = qlkdata_rec{};
  rec.feat = word;
  rec.status1 = in.ConsumeIntegral<uint32_t>();
  rec.status2 = in.ConsumeIntegral<uint32_t>();
  rec.status3 = in.ConsumeIntegral<uint32_t>();
  rec.jam_detail = in.ConsumeIntegral<uint32_t>();
  rec.image_flags = in.ConsumeIntegral<uint32_t>();
  rec.skew_hold = in.ConsumeIntegral<int32_t>();
  rec.not_ready = in.ConsumeIntegral<int32_t>();
  rec.lines_front = in.ConsumeIntegral<int32_t>();
  rec.lines_back = in.ConsumeIntegral<int32_t>();
  rec.thickness = in.ConsumeIntegral<int32_t>();
  for (unsigned char& b : rec.sensor_bytes) b = in.ConsumeIntegral<uint8_t>();

  sht_desc desc{};
  const size_t marks = in.ConsumeIntegralInRange<size_t>(0, QMK_MAX_FORM_ID_MARKS);
  for (size_t i = 0; i < marks; ++i) {
    desc.id_mark_col[i] = in.ConsumeIntegral<int32_t>();
    desc.id_mark_row[i] = in.ConsumeIntegral<int32_t>();
    desc.id_mark_sense[i] = in.ConsumeIntegral<uint8_t>();
  }
  desc.id_lines_front = in.ConsumeIntegral<int32_t>();
  desc.id_lines_back = in.ConsumeIntegral<int32_t>();
  desc.thick_min = in.ConsumeIntegral<int32_t>();
  desc.thick_max = in.ConsumeIntegral<int32_t>();
  desc.skew_mark_count = in.ConsumeIntegral<uint8_t>();
  for (auto& pair : desc.skew_marks) pair[0] = in.ConsumeIntegral<uint8_t>(), pair[1] = in.ConsumeIntegral<uint8_t>();
  const bool front_only = in.ConsumeBool(), first = in.ConsumeBool(), last = in.ConsumeBool();
  const int require = in.ConsumeIntegral<int>();

  const std::vector<uint8_t> cells = in.ConsumeRemainingBytes<uint8_t>();
  for (size_t i = 0; i < cells.size() && i < 2 * QMK_OMR_BYTES; ++i)
    (i < QMK_OMR_BYTES ? rec.omr_front[i] : rec.omr_back[i - QMK_OMR_BYTES]) = cells[i];

  std::vector<std::string> faults;
  qlkdata_rec copy = rec;
  qmk::scanner::ScnBuildErrorList(&copy, faults);
  for (const std::string& f : faults)
    if (f.size() > 49) __builtin_trap();
  qmk::scanner::ScnVerifySheetMarks(&rec, &desc, require);
  qmk::scanner::ScnVerifySkewMarks(&rec, &desc);
  qmk::scanner::ScnClearSolidColumns(&rec);
  qmk::scanner::ScnFindFormIdMarks(&rec, &desc, front_only, first, last);
  qmk::scanner::ScnFindSolidRow(&rec, &desc);
  if (session) QlkClose(session);
  return 0;
}
