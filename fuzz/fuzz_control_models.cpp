// fuzz_control_models.cpp: runs byte-coded sequences of user and program operations on the edit
// and list models and checks what must always hold: the caret and selection stay in the text,
// lines stay consistent, two undos give back the text, list indexes stay in range.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/ui/controls/edit_model.h"
#include "platform/ui/controls/list_box_model.h"

using namespace qmk::platform::ui::controls;

namespace {

class Bytes {
 public:
  Bytes(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  bool more() const { return at_ < size_; }
  uint8_t next() { return at_ < size_ ? data_[at_++] : 0; }
  std::string text() {
    size_t n = next() % 12;
    std::string out;
    for (size_t i = 0; i < n && more(); ++i) out += static_cast<char>(next());
    return out;
  }

 private:
  const uint8_t* data_;
  size_t size_;
  size_t at_ = 0;
};

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckEdit(const EditModel& m) {
  Check(m.anchor() >= 0 && m.anchor() <= m.Length());
  Check(m.caret() >= 0 && m.caret() <= m.Length());
  int line = m.LineFromChar(m.caret());
  Check(line >= 0 && line < m.LineCount());
  Check(m.LineIndex(line) <= m.caret());
  Check(m.LineIndex(line) + m.LineLength(line) <= m.Length());
  Check(m.first_line() >= 0 && m.first_line() < m.LineCount());
  // The lines cover the text in order, each starting where the one before ended (or after
  // its line break).
  for (int i = 1; i < m.LineCount(); ++i) {
    int end = m.LineIndex(i - 1) + m.LineLength(i - 1);
    Check(m.LineIndex(i) == end || m.LineIndex(i) == end + 2);
  }
}

void RunEdit(Bytes& in) {
  uint8_t flags = in.next();
  EditModel m({(flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0, (flags & 8) != 0});
  MemoryClipboard clip;
  m.SetText(in.text());
  // Copying all and pasting doubles the text: a limit keeps the runs short.
  m.SetLimit(4096);
  auto width = [](std::string_view s) { return static_cast<int>(s.size()) * 7; };
  for (int steps = 0; in.more() && steps < 200; ++steps) {
    uint8_t op = in.next();
    switch (op % 15) {
      case 0: m.TypeChar(static_cast<char>(in.next())); break;
      case 1: m.ReplaceSel(in.text(), (op & 0x10) != 0); break;
      case 2: m.DeleteBack(); break;
      case 3: m.DeleteForward(); break;
      case 4: m.SetSel(static_cast<int8_t>(in.next()), static_cast<int8_t>(in.next())); break;
      case 5: m.MoveCaret(static_cast<CaretMove>(in.next() % 12), (op & 0x10) != 0); break;
      case 6: {
        std::string before = m.text();
        bool could = m.CanUndo();
        m.Undo();
        m.Undo();
        if (could) Check(m.text() == before);
        break;
      }
      case 7: m.Cut(clip); break;
      case 8: m.Copy(clip); break;
      case 9: m.Paste(clip); break;
      case 10: m.SetLimit(1 + in.next() % 200); break;
      case 11: m.SetVisibleLines(in.next() % 5); m.ScrollLines(static_cast<int8_t>(in.next())); break;
      case 12: m.EnsureCaretVisible(width, in.next()); break;
      case 13: m.SelectWordAt(static_cast<int8_t>(in.next())); break;
      case 14: {
        uint8_t px = in.next();
        if (px < 8) m.SetWrap(nullptr, 0);
        else m.SetWrap(width, px % 64);
        break;
      }
    }
    CheckEdit(m);
  }
}

void CheckList(const ListBoxModel& m) {
  Check(m.caret() >= -1 && m.caret() < m.Count());
  Check(m.top_index() >= 0 && (m.Count() == 0 || m.top_index() < m.Count()));
  int sel = m.CurSel();
  Check(sel == kListError || (sel >= 0 && sel < m.Count()));
  if (!m.IsMultiple()) Check(m.SelCount() <= 1);
}

void RunList(Bytes& in) {
  uint8_t flags = in.next();
  ListBoxModel m({(flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0});
  for (int steps = 0; in.more() && steps < 200; ++steps) {
    uint8_t op = in.next();
    int index = static_cast<int8_t>(in.next());
    switch (op % 10) {
      case 0: m.AddString(in.text()); break;
      case 1: m.InsertString(index, in.text()); break;
      case 2: m.DeleteString(index); break;
      case 3: m.SetCurSel(index); break;
      case 4: m.SetSel(index, (op & 0x10) != 0); break;
      case 5: m.KeyMove(static_cast<ListMove>(in.next() % 6), (op & 0x10) != 0); break;
      case 6: m.KeyChar(static_cast<char>(in.next())); break;
      case 7: m.Click(index, (op & 0x10) != 0, (op & 0x20) != 0); break;
      case 8: m.SetVisibleRows(in.next() % 8); m.SetTopIndex(index); break;
      case 9: {
        int found = m.FindString(index, in.text());
        Check(found == kListError || (found >= 0 && found < m.Count()));
        break;
      }
    }
    CheckList(m);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Bytes in(data, size);
  if (in.next() & 1) RunList(in);
  else RunEdit(in);
  return 0;
}
