// msgbox_buttons.cpp: the button table of the message box.
#include "toolkit/dialogs/msgbox_buttons.h"

#include <cstdio>

#include "toolkit/dialogs/resource_manager.h"
#include "toolkit/dialogs/resource_manager_holder.h"

namespace qmk::toolkit {
namespace {

struct ButtonText {
  int id;
  int string_id;
  const char* text;
};

const ButtonText kButtonTexts[] = {
    {1, 30742, "&OK"},          {2, 30743, "&Cancel"},      {3, 30744, "&Abort"},
    {4, 30745, "&Retry"},       {5, 30746, "&Ignore"},      {6, 30747, "&Yes"},
    {7, 30748, "&No"},          {9, 30749, "&Help"},        {10, 30750, "&Retry"},
    {11, 30751, "&Continue"},   {14, 30752, "Yes to &all"}, {15, 30753, "No to a&ll"},
    {16, 30754, "&Skip"},       {17, 30755, "Skip &all"},   {18, 30756, "Ignore &all"},
    {20, 30757, "C&opy"},
};

// 0 stands for the optional "to all" buttons, present only with their style bits.
struct SetRow {
  std::vector<int> ids;
  int escape;
};
const SetRow kSets[] = {
    /*0*/ {{1}, 1},
    /*1*/ {{1, 2}, 2},
    /*2*/ {{3, 4, 5}, -1},
    /*3*/ {{6, 14, 7, 15, 2}, 2},
    /*4*/ {{6, 14, 7, 15}, -1},
    /*5*/ {{4, 2}, 2},
    /*6*/ {{2, 10, 11}, 2},
    /*7*/ {{11, 3}, -1},
    /*8*/ {{16, 17, 2}, 2},
    /*9*/ {{5, 18, 2}, 2},
};

}  // namespace

std::string MsgBoxButtonText(int id) {
  for (const ButtonText& b : kButtonTexts) {
    if (b.id != id) continue;
    std::string loaded;
    if (ResourceManager()->LoadString(b.string_id, loaded) && !loaded.empty()) return loaded;
    return b.text;
  }
  return "&OK";
}

MsgBoxButtons MakeMsgBoxButtons(uint32_t style, uint32_t ex_style) {
  const uint32_t set = style & kMbButtonSetMask;
  const SetRow& row = set < std::size(kSets) ? kSets[set] : kSets[0];
  MsgBoxButtons out;
  for (int id : row.ids) {
    if (id == 14 && !(style & kMbYesToAll)) continue;
    if (id == 15 && !(style & kMbNoToAll)) continue;
    out.buttons.push_back({id, MsgBoxButtonText(id)});
  }
  out.escape_id = row.escape;
  // 0x100 to 0x500 name the second to the sixth button of the set, when there are so many.
  const size_t pick = (style & kMbDefaultMask) >> 8;
  const size_t index = (pick >= 1 && pick <= 5 && pick < out.buttons.size()) ? pick : 0;
  out.default_id = out.buttons[index].id;
  if (style & kMbHelp) out.buttons.push_back({kMbHelpButtonId, MsgBoxButtonText(kMbHelpButtonId)});
  if (ex_style & kMbExCopyButton) {
    const MsgBoxButton copy{kMbCopyButtonId, MsgBoxButtonText(kMbCopyButtonId)};
    if (ex_style & kMbExCopyFirst)
      out.buttons.insert(out.buttons.begin(), copy);
    else
      out.buttons.push_back(copy);
  }
  return out;
}

int MsgBoxTextChecksum(const std::string& text) {
  // Wraps like the 32-bit sum it stands for, so long texts stay defined.
  uint32_t sum = 0;
  for (size_t i = 0; i < text.size(); ++i)
    sum += static_cast<uint32_t>(static_cast<int32_t>(static_cast<signed char>(text[i])) *
                                 static_cast<int64_t>(i));
  return static_cast<int32_t>(sum);
}

std::string MsgBoxUniqueId(const std::string& unique_name, int help_id, const std::string& text) {
  const std::string name = unique_name.empty() ? "not-unique" : unique_name;
  return "msgbox-" + name + "-helpid-" + std::to_string(help_id) + "-chksum-" +
         std::to_string(MsgBoxTextChecksum(text));
}

}  // namespace qmk::toolkit
