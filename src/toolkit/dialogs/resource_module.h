// resource_module.h: a module of resources: a table from (type, name or id, language) to bytes.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace qmk::toolkit {

// Resource types by their platform numbers.
constexpr int kResourceTypeCursor = 1;
constexpr int kResourceTypeBitmap = 2;
constexpr int kResourceTypeIcon = 3;
constexpr int kResourceTypeMenu = 4;
constexpr int kResourceTypeDialog = 5;
constexpr int kResourceTypeString = 6;
constexpr int kResourceTypeAccelerator = 9;

// A resource is named by a number or by a text; names match without regard to ASCII case.
struct ResourceName {
  int id = 0;
  std::string text;  // empty for a numbered resource

  ResourceName(int number) : id(number) {}  // NOLINT: numbers name resources as often as texts
  ResourceName(const char* name) : text(name ? name : "") {}  // NOLINT
  ResourceName(std::string name) : text(std::move(name)) {}  // NOLINT
  bool IsNumber() const { return text.empty(); }
};

// One module that may hold resources. Lookups ask for one exact language.
class ResourceModule {
 public:
  virtual ~ResourceModule() = default;
  // The bytes of the resource, or nullopt when the module has none in that language. The bytes
  // live as long as the module.
  virtual std::optional<std::string_view> Find(int type, const ResourceName& name,
                                               uint16_t language) const = 0;
  // Any language the module holds the resource in (the lowest), for lookups that name none.
  virtual std::optional<uint16_t> AnyLanguageOf(int type, const ResourceName& name) const = 0;
};

// A module held in memory. Bytes added as views must outlive the table (compiled-in data);
// bytes added as strings are copied.
class ResourceTable : public ResourceModule {
 public:
  void AddView(int type, const ResourceName& name, uint16_t language, std::string_view bytes);
  void AddCopy(int type, const ResourceName& name, uint16_t language, std::string bytes);
  size_t size() const { return entries_.size(); }

  std::optional<std::string_view> Find(int type, const ResourceName& name,
                                       uint16_t language) const override;
  std::optional<uint16_t> AnyLanguageOf(int type, const ResourceName& name) const override;

 private:
  // (type, id, upper-cased text name, language)
  using Key = std::tuple<int, int, std::string, uint16_t>;
  static Key MakeKey(int type, const ResourceName& name, uint16_t language);

  std::map<Key, std::string_view> entries_;
  std::map<Key, std::string> owned_;
};

}  // namespace qmk::toolkit
