// resource_module.cpp: the in-memory resource table.
#include "toolkit/dialogs/resource_module.h"

#include <cctype>

namespace qmk::toolkit {

ResourceTable::Key ResourceTable::MakeKey(int type, const ResourceName& name, uint16_t language) {
  std::string upper = name.text;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return {type, name.IsNumber() ? name.id : 0, upper, language};
}

void ResourceTable::AddView(int type, const ResourceName& name, uint16_t language,
                            std::string_view bytes) {
  const Key key = MakeKey(type, name, language);
  owned_.erase(key);
  entries_[key] = bytes;
}

void ResourceTable::AddCopy(int type, const ResourceName& name, uint16_t language,
                            std::string bytes) {
  const Key key = MakeKey(type, name, language);
  std::string& kept = owned_[key] = std::move(bytes);
  entries_[key] = kept;
}

std::optional<std::string_view> ResourceTable::Find(int type, const ResourceName& name,
                                                    uint16_t language) const {
  const auto it = entries_.find(MakeKey(type, name, language));
  if (it == entries_.end()) return std::nullopt;
  return it->second;
}

std::optional<uint16_t> ResourceTable::AnyLanguageOf(int type, const ResourceName& name) const {
  const Key first = MakeKey(type, name, 0);
  const auto it = entries_.lower_bound(first);
  if (it == entries_.end()) return std::nullopt;
  const Key& k = it->first;
  if (std::get<0>(k) != std::get<0>(first) || std::get<1>(k) != std::get<1>(first) ||
      std::get<2>(k) != std::get<2>(first))
    return std::nullopt;
  return std::get<3>(k);
}

}  // namespace qmk::toolkit
