// texts.cpp: GenLoadText over the common services' own table.
#include <algorithm>
#include <cstring>
#include <iterator>

#include "qmk/QmkGen.h"

namespace {

struct GenText {
  int id;
  const char* text;
};

constexpr GenText kTexts[] = {
#define GEN_TEXT(id, text) {id, text},
#include "texts.inc"
#undef GEN_TEXT
};

constexpr bool SortedById() {
  for (size_t i = 1; i < std::size(kTexts); ++i)
    if (kTexts[i - 1].id >= kTexts[i].id) return false;
  return true;
}
static_assert(SortedById(), "texts.inc must list ids in rising order, once each");

const char* FindText(int id) {
  auto it = std::lower_bound(std::begin(kTexts), std::end(kTexts), id,
                             [](const GenText& t, int key) { return t.id < key; });
  return (it != std::end(kTexts) && it->id == id) ? it->text : nullptr;
}

}  // namespace

extern "C" QMK_API int GenLoadText(void*, int id, char* buffer, int size) {
  if (!buffer || size <= 0) return 0;
  const char* text = FindText(id);
  if (!text) {
    buffer[0] = '\0';
    return 0;
  }
  const int length = std::min<int>(static_cast<int>(std::strlen(text)), size - 1);
  std::memcpy(buffer, text, static_cast<size_t>(length));
  buffer[length] = '\0';
  return length;
}
