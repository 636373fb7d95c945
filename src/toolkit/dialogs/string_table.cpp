// string_table.cpp: the library's texts by id, loaded through the resource manager.
#include "toolkit/dialogs/string_table.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "toolkit/dialogs/resource_manager_holder.h"
#include "platform/text.h"

namespace qmk::toolkit {
namespace {

std::map<int, std::optional<std::string>>& Overrides() {
  static std::map<int, std::optional<std::string>> overrides;
  return overrides;
}

// The text of `id` into `out`; false when neither an override nor the resource manager has it.
bool Find(int id, std::string& out) {
  if (!Overrides().empty()) {
    auto o = Overrides().find(id);
    if (o != Overrides().end()) {
      out = o->second.value_or("");
      return o->second.has_value();
    }
  }
  return ResourceManager()->LoadString(id, out);
}

}  // namespace

bool LoadString(int id, std::string& out) {
  std::string text;
  const bool found = Find(id, text);
  out = found ? std::move(text) : std::string();
  return found;
}

bool LoadString(int id, char* buffer, size_t size) {
  std::string text;
  const bool found = Find(id, text);
  platform::CopyCut(found ? text : std::string(), buffer, size);
  return found;
}

ScopedStringOverride::ScopedStringOverride(int id, std::optional<std::string> text) : id_(id) {
  auto it = Overrides().find(id);
  if (it != Overrides().end()) previous_ = it->second;
  Overrides()[id] = std::move(text);
}

ScopedStringOverride::~ScopedStringOverride() {
  if (previous_)
    Overrides()[id_] = *previous_;
  else
    Overrides().erase(id_);
}

}  // namespace qmk::toolkit
