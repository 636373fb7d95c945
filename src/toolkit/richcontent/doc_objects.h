// doc_objects.h: the named objects that documents share: pictures and kept layouts (style
// sheets), the per-layout and process-wide containers, and the default style sheet.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::richcontent {

class CExtRichContentLayout;

class CExtRichDocObjectBase {
 public:
  explicit CExtRichDocObjectBase(std::string name) : m_strName(std::move(name)) {}
  virtual ~CExtRichDocObjectBase() = default;
  const std::string& Name() const { return m_strName; }
  // Stores or loads the name, a 32-bit "has children" word, then what the object holds (a
  // container: the count and each object). False when the archive failed or the data is wrong.
  virtual bool Serialize(platform::Archive& ar);
  // The tag that tells the object's class in a container's archive.
  virtual uint8_t ClassTag() const { return 0; }

 protected:
  virtual bool SerializeContent(platform::Archive& /*ar*/) { return true; }
  virtual bool HasChildren() const { return false; }

 private:
  std::string m_strName;
};

// A picture shared by documents.
class CExtRichDocObjectImage : public CExtRichDocObjectBase {
 public:
  using CExtRichDocObjectBase::CExtRichDocObjectBase;
  uint8_t ClassTag() const override { return 1; }
  bitmap::CExtBitmap m_bitmap;

 protected:
  bool SerializeContent(platform::Archive& ar) override { return m_bitmap.Serialize(ar); }
};

// A text with the layout parsed from it; setting the text parses it again.
class CExtRichDocObjectLayoutKeeper : public CExtRichDocObjectBase {
 public:
  explicit CExtRichDocObjectLayoutKeeper(std::string name);
  ~CExtRichDocObjectLayoutKeeper() override;
  bool SetText(std::string_view text, int form);
  const std::string& Text() const { return m_strText; }
  CExtRichContentLayout& Layout() { return *m_pLayout; }
  uint8_t ClassTag() const override { return 2; }

 protected:
  bool SerializeContent(platform::Archive& ar) override;

 private:
  std::string m_strText;
  std::unique_ptr<CExtRichContentLayout> m_pLayout;
};

// Objects by lower-cased name.
class CExtRichDocObjectContainer : public CExtRichDocObjectBase {
 public:
  using CExtRichDocObjectBase::CExtRichDocObjectBase;
  CExtRichDocObjectBase* Find(std::string_view name) const;
  // False for a duplicate name unless `replace`.
  bool Add(std::unique_ptr<CExtRichDocObjectBase> object, bool replace = false);
  bool Remove(std::string_view name);
  void RemoveAll() { m_objects.clear(); }
  size_t Count() const { return m_objects.size(); }
  uint8_t ClassTag() const override { return 3; }

 protected:
  bool SerializeContent(platform::Archive& ar) override;
  bool HasChildren() const override { return true; }

 private:
  std::map<std::string, std::unique_ptr<CExtRichDocObjectBase>> m_objects;
};

inline constexpr const char* kDefaultSheetName = "$-default-css-$";
inline constexpr const char* kLocalContainerName = "$-object-container-local-$";
inline constexpr const char* kGlobalContainerName = "$-object-container-global-$";

// The one process-wide container; it keeps the default style sheet from its construction on.
class CExtRichDocObjectContainerGlobal : public CExtRichDocObjectContainer {
 public:
  static CExtRichDocObjectContainerGlobal& Instance();

 private:
  CExtRichDocObjectContainerGlobal();
};

// The picture a document names: its local container is asked before the global one. Null when
// neither holds a picture of that name, or the picture is empty.
CExtRichDocObjectImage* FindImageObject(CExtRichContentLayout& layout, std::string_view name);

// The text of the default style sheet.
std::string_view DefaultStyleSheetText();

}  // namespace qmk::toolkit::richcontent
