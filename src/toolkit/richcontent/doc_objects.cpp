// doc_objects.cpp: the doc object containers, the kept layouts and the process-wide container
// that keeps the default style sheet.
#include "toolkit/richcontent/doc_objects.h"

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {

bool CExtRichDocObjectBase::Serialize(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteString(m_strName);
    ar.WriteU32(HasChildren() ? 1 : 0);
  } else {
    m_strName = ar.ReadString();
    if (ar.ReadU32() != (HasChildren() ? 1u : 0u)) return false;
  }
  return ar.ok() && SerializeContent(ar) && ar.ok();
}

bool CExtRichDocObjectLayoutKeeper::SerializeContent(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteString(m_strText);
    ar.WriteU32(static_cast<uint32_t>(m_pLayout->Form()));
    return ar.ok();
  }
  std::string text = ar.ReadString();
  const uint32_t form = ar.ReadU32();
  if (!ar.ok() || form > kFormPlain) return false;
  if (form == 0)
    m_strText = std::move(text);  // never parsed
  else
    SetText(text, static_cast<int>(form));
  return true;
}

namespace {

// A new object of the class a container's archive names.
std::unique_ptr<CExtRichDocObjectBase> MakeObject(uint8_t tag) {
  switch (tag) {
    case 1: return std::make_unique<CExtRichDocObjectImage>("");
    case 2: return std::make_unique<CExtRichDocObjectLayoutKeeper>("");
    case 3: return std::make_unique<CExtRichDocObjectContainer>("");
    default: return nullptr;
  }
}

}  // namespace

bool CExtRichDocObjectContainer::SerializeContent(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(m_objects.size()));
    for (const auto& [key, object] : m_objects) {
      ar.WriteU8(object->ClassTag());
      if (!object->Serialize(ar)) return false;
    }
    return ar.ok();
  }
  RemoveAll();
  const uint32_t count = ar.ReadU32();
  for (uint32_t i = 0; i < count && ar.ok(); ++i) {
    std::unique_ptr<CExtRichDocObjectBase> object = MakeObject(ar.ReadU8());
    if (!object || !object->Serialize(ar) || !Add(std::move(object), true)) return false;
  }
  return ar.ok();
}

CExtRichDocObjectLayoutKeeper::CExtRichDocObjectLayoutKeeper(std::string name)
    : CExtRichDocObjectBase(std::move(name)), m_pLayout(std::make_unique<CExtRichContentLayout>()) {}

CExtRichDocObjectLayoutKeeper::~CExtRichDocObjectLayoutKeeper() = default;

bool CExtRichDocObjectLayoutKeeper::SetText(std::string_view text, int form) {
  m_strText = text;
  return m_pLayout->ParseAuto(m_strText, form);
}

CExtRichDocObjectBase* CExtRichDocObjectContainer::Find(std::string_view name) const {
  const auto found = m_objects.find(ToLower(name));
  return found == m_objects.end() ? nullptr : found->second.get();
}

bool CExtRichDocObjectContainer::Add(std::unique_ptr<CExtRichDocObjectBase> object, bool replace) {
  if (!object) return false;
  const std::string key = ToLower(object->Name());
  auto found = m_objects.find(key);
  if (found != m_objects.end()) {
    if (!replace) return false;
    found->second = std::move(object);
    return true;
  }
  m_objects.emplace(key, std::move(object));
  return true;
}

bool CExtRichDocObjectContainer::Remove(std::string_view name) {
  return m_objects.erase(ToLower(name)) > 0;
}

CExtRichDocObjectContainerGlobal::CExtRichDocObjectContainerGlobal()
    : CExtRichDocObjectContainer(kGlobalContainerName) {
  auto keeper = std::make_unique<CExtRichDocObjectLayoutKeeper>(kDefaultSheetName);
  keeper->SetText(DefaultStyleSheetText(), kFormCss);
  Add(std::move(keeper));
}

CExtRichDocObjectContainerGlobal& CExtRichDocObjectContainerGlobal::Instance() {
  static CExtRichDocObjectContainerGlobal global;
  return global;
}

CExtRichDocObjectImage* FindImageObject(CExtRichContentLayout& layout, std::string_view name) {
  if (name.empty() || name == "none") return nullptr;
  CExtRichDocObjectBase* object = layout.LocalContainer().Find(name);
  if (!object) object = CExtRichDocObjectContainerGlobal::Instance().Find(name);
  auto* image = dynamic_cast<CExtRichDocObjectImage*>(object);
  return image && !image->m_bitmap.IsEmpty() ? image : nullptr;
}

}  // namespace qmk::toolkit::richcontent
