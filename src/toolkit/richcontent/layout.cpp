// layout.cpp: CExtRichContentLayout's ownership of items, the choice of form, the linked
// sheets and the event sinks, and the text helpers the readers share.
#include "toolkit/richcontent/layout.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "toolkit/richcontent/doc_objects.h"

namespace qmk::toolkit::richcontent {
namespace {

CExtRichContentLayout::Detector g_detector = &CExtRichContentLayout::StandardDetector;

}  // namespace

std::string ToLower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string_view Trim(std::string_view text, std::string_view set) {
  const size_t first = text.find_first_not_of(set);
  if (first == std::string_view::npos) return {};
  const size_t last = text.find_last_not_of(set);
  return text.substr(first, last - first + 1);
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

// ---- sinks ----

void CExtRichContentEventsBroadcast::RemoveSink(CExtRichContentEvents* sink) {
  m_sinks.erase(std::remove(m_sinks.begin(), m_sinks.end(), sink), m_sinks.end());
}

bool CExtRichContentEventsBroadcast::QueryItemState(CExtRichContentItem& item,
                                                    const PseudoStateSet& fields, int32_t value) {
  if (fields.IsEmpty()) return false;
  for (CExtRichContentEvents* sink : m_sinks)
    if (sink->OnQueryItemState(item, fields, value)) return true;
  return false;
}

void CExtRichContentEventsBroadcast::BroadcastClassName(CExtRichContentItem& item, const std::string& name) {
  for (CExtRichContentEvents* sink : m_sinks) sink->OnClassName(item, name);
}

// ---- the layout ----

CExtRichContentLayout::CExtRichContentLayout(int value) : m_nValue(value) {}

CExtRichContentLayout::CExtRichContentLayout(std::string_view text, int form, int value)
    : m_nValue(value) {
  ParseAuto(text, form);
}

CExtRichContentLayout::~CExtRichContentLayout() = default;

void CExtRichContentLayout::SetDetector(Detector detector) { g_detector = detector; }
CExtRichContentLayout::Detector CExtRichContentLayout::GetDetector() { return g_detector; }

int CExtRichContentLayout::StandardDetector(const char* text, int length) {
  if (!text) return kFormPlain;
  const size_t n = length < 0 ? std::strlen(text) : static_cast<size_t>(length);
  if (n < 5) return kFormPlain;
  size_t i = 0;
  while (i < n && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  if (i >= n || text[i] != '<') return kFormPlain;
  // The "<" and the letters behind it, up to five; other characters are passed over.
  std::string head = "<";
  for (++i; i < n && head.size() < 5; ++i)
    if (std::isalpha(static_cast<unsigned char>(text[i]))) head += text[i];
  return ToLower(head) == "<html" ? kFormHtml : kFormPlain;
}

bool CExtRichContentLayout::ParseAuto(std::string_view text, int form, unsigned flags, int /*extra*/,
                                      bool errorKeep) {
  if (form == kFormDetect) {
    if (!g_detector) return false;
    form = g_detector(text.data(), static_cast<int>(std::min<size_t>(text.size(), 0x7FFFFFFF)));
  }
  switch (form) {
    case kFormHtml: return ParseHtml(text, errorKeep);
    case kFormCss: return ParseCss(text, errorKeep);
    case kFormPlain: return ParsePlainText(text, flags, 0, errorKeep);
    default: return false;
  }
}

void CExtRichContentLayout::Empty() {
  m_items.clear();
  m_headItems.clear();
  m_rules.clear();
  m_linked.clear();
  m_arena.clear();
  m_knownStyles.clear();
  m_sharedRules.Clear();
  m_sharedStyles.Clear();
  m_nForm = 0;
  m_nErrors = 0;
}

CExtRichContentItem* CExtRichContentLayout::NewItem(int kind) {
  m_arena.push_back(std::make_unique<CExtRichContentItem>(this, kind));
  return m_arena.back().get();
}

const CExtRichStyleDescription* CExtRichContentLayout::KnownStyle(const CExtRichStyleRule* rule,
                                                                  const CExtRichStyleDescription* parent,
                                                                  bool blockDisplay) const {
  if (!m_sharedRules.Keeps(rule) || !m_sharedStyles.Keeps(parent)) return nullptr;
  const auto found = m_knownStyles.find({rule, parent, blockDisplay});
  return found == m_knownStyles.end() ? nullptr : found->second;
}

void CExtRichContentLayout::RememberStyle(const CExtRichStyleRule* rule, const CExtRichStyleDescription* parent,
                                          bool blockDisplay, const CExtRichStyleDescription* style) {
  // A parent that isn't kept here may be a caller's record whose address comes back with other
  // values, so only kept ones are remembered.
  if (m_sharedRules.Keeps(rule) && m_sharedStyles.Keeps(parent)) m_knownStyles[{rule, parent, blockDisplay}] = style;
}

CExtRichContentItem* CExtRichContentLayout::FindRuleKey(const std::string& key) const {
  const auto found = m_rules.find(key);
  return found == m_rules.end() ? nullptr : found->second;
}

CExtRichDocObjectContainer& CExtRichContentLayout::LocalContainer() {
  if (!m_pLocal) m_pLocal = std::make_unique<CExtRichDocObjectContainer>(kLocalContainerName);
  return *m_pLocal;
}

bool CExtRichContentLayout::LinkSheet(const std::string& name, bool useLocal, bool useGlobal) {
  CExtRichDocObjectBase* object = nullptr;
  if (useLocal && m_pLocal) object = m_pLocal->Find(name);
  if (!object && useGlobal) object = CExtRichDocObjectContainerGlobal::Instance().Find(name);
  auto* keeper = dynamic_cast<CExtRichDocObjectLayoutKeeper*>(object);
  if (!keeper || keeper->Layout().Form() != kFormCss) return false;
  CExtRichContentLayout* sheet = &keeper->Layout();
  if (sheet == this) return false;
  if (std::find(m_linked.begin(), m_linked.end(), sheet) == m_linked.end()) m_linked.push_back(sheet);
  return true;
}

void CExtRichContentLayout::ComputeTree(const CExtRichStyleDescription& rootStyle) {
  CExtRichContentItem* root = Root();
  if (!root) return;
  // Depth first without recursion: deep documents must not exhaust the stack.
  std::vector<std::pair<CExtRichContentItem*, const CExtRichStyleDescription*>> work;
  work.emplace_back(root, &rootStyle);
  while (!work.empty()) {
    auto [item, parentStyle] = work.back();
    work.pop_back();
    const CExtRichStyleDescription& style = item->ComputeStyle(*parentStyle);
    // Words and spaces are drawn in their element's style; they keep none of their own.
    for (auto child = item->m_children.rbegin(); child != item->m_children.rend(); ++child)
      if ((*child)->m_nKind != kKindWord && (*child)->m_nKind != kKindSpace) work.emplace_back(*child, &style);
  }
}

}  // namespace qmk::toolkit::richcontent
