// fuzz_masked_edit.cpp: random keystrokes against random masks and number settings, and random
// bytes as a rule archive. After every step the caret lies within the text and the text is what
// the behaviour itself would keep.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/archive.h"
#include "toolkit/edit/edit_masked.h"
#include "toolkit/edit/system_number.h"

namespace {

using namespace qmk::toolkit::edit;

class Input {
 public:
  Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  bool empty() const { return pos_ >= size_; }
  uint8_t Byte() { return pos_ < size_ ? data_[pos_++] : 0; }
  std::string Bytes(size_t n) {
    std::string s;
    while (n-- && !empty()) s += static_cast<char>(Byte());
    return s;
  }

 private:
  const uint8_t* data_;
  size_t size_, pos_ = 0;
};

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckSelection(const MemoryEdit& edit) {
  int start = -1, end = -1;
  edit.GetSel(start, end);
  Check(0 <= start && start <= end && end <= static_cast<int>(edit.GetText().size()));
}

// One keystroke or clipboard operation chosen by the input.
void Step(MemoryEdit& edit, Input& in) {
  const uint8_t op = in.Byte();
  static const unsigned kKeys[] = {kKeyLeft, kKeyRight, kKeyHome, kKeyEnd};
  switch (op % 16) {
    case 10:
      edit.KeyDown(kKeyBack);
      edit.Char(kKeyBack);
      break;
    case 11:
      edit.KeyDown(kKeyDelete);
      break;
    case 12:
      edit.SetShift(op & 0x10);
      edit.KeyDown(kKeys[(op >> 5) & 3]);
      edit.SetShift(false);
      break;
    case 13:
      edit.SetClipboard(in.Bytes(in.Byte() % 24));
      edit.Paste();
      break;
    case 14:
      edit.Cut();
      break;
    case 15: {
      const int size = static_cast<int>(edit.GetText().size()) + 1;
      const int a = in.Byte() % size, b = in.Byte() % size;
      edit.SetSel(a, b);
      break;
    }
    default:
      edit.Char(in.Byte());
      break;
  }
}

void FuzzMask(Input& in) {
  static const char kMaskBytes[] = "###@@$$/-:() ._xA\xC3";
  const uint8_t flags = in.Byte();
  std::string mask;
  for (size_t n = in.Byte() % 64; n && !in.empty(); --n) {
    const uint8_t b = in.Byte();
    mask += b < 200 ? kMaskBytes[b % (sizeof kMaskBytes - 1)] : static_cast<char>(b);
  }
  CExtEditMasked edit;
  edit.SetInsertMode(flags & 1);
  edit.SetShowPrompt(!(flags & 2));
  edit.SetAdvanceToNextField(!(flags & 4));
  if (flags & 8) edit.SetPromptChar(static_cast<char>(in.Byte()));
  edit.SetMask(mask);
  const CBehaviorMasked& behavior = edit.Behavior();
  for (int steps = 0; !in.empty() && steps < 400; ++steps) {
    Step(edit, in);
    CheckSelection(edit);
    const std::string text = edit.GetText();
    Check(behavior.MatchesMask(text));
    Check(behavior.ValidTextOf(text) == text);
  }
}

void FuzzNumber(Input& in) {
  const uint8_t flags = in.Byte();
  const int whole = static_cast<int>(in.Byte() % 40) - 20;
  const int fraction = static_cast<int>(in.Byte() % 12) - 1;
  MemoryEdit edit;
  std::unique_ptr<CExtEditSystemNumberCurrencyBase> behavior;
  if (flags & 1)
    behavior = std::make_unique<CExtEditSystemCurrency>(&edit, whole, fraction);
  else
    behavior = std::make_unique<CExtEditSystemNumber>(&edit, whole, fraction);
  behavior->SetFlags((flags >> 1) & 3);
  edit.SetBehavior(behavior.get());
  for (int steps = 0; !in.empty() && steps < 400; ++steps) {
    Step(edit, in);
    CheckSelection(edit);
    // Every keystroke and clipboard change leaves the text in its composed form.
    Check(edit.GetText() == behavior->GetValidText());
    (void)behavior->LongDoubleGet();
  }
}

void FuzzRuleArchive(Input& in) {
  const std::string bytes = in.Bytes(4096);
  qmk::platform::Archive ar = qmk::platform::Archive::FromMemory(bytes.data(), bytes.size());
  CBehaviorMasked::CharRuleArray rules;
  if (rules.Serialize(ar)) Check(rules.size() * 8 + 4 <= bytes.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input in(data, size);
  switch (in.Byte() % 3) {
    case 0:
      FuzzMask(in);
      break;
    case 1:
      FuzzNumber(in);
      break;
    default:
      FuzzRuleArchive(in);
      break;
  }
  return 0;
}
