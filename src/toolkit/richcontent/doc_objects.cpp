// doc_objects.cpp: the doc object containers, the kept layouts and the process-wide container
// that keeps the default style sheet.
#include "toolkit/richcontent/doc_objects.h"

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {

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

}  // namespace qmk::toolkit::richcontent
