// cascade.cpp: the style cascade of an item: its own rule from linked sheets, attributes and
// inline declarations, state rules, run-time declarations and item states.
#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"

namespace qmk::toolkit::richcontent {

// ---- pseudo state sets ----

bool PseudoStateSet::IsEmpty() const {
  for (int32_t f : m_fields)
    if (f != 0) return false;
  return true;
}

void PseudoStateSet::MergeFrom(const PseudoStateSet& other) {
  for (int i = 0; i < kPseudoFieldCount; ++i)
    if (other.m_fields[i] != 0) m_fields[i] = other.m_fields[i];
}

bool PseudoStateSet::Matches(const PseudoStateSet& rule, const PseudoStateSet& state) {
  // Pseudo elements (and the reserved field) match with nothing further.
  for (PseudoField f : {kPseudoAfter, kPseudoBefore, kPseudoFirstChild, kPseudoFirstLetter,
                        kPseudoFirstLine, kPseudoReserved})
    if (rule.m_fields[f] != 0) return true;
  bool named = false;
  for (PseudoField f : {kPseudoDisabled, kPseudoActive, kPseudoFocus, kPseudoSelection,
                        kPseudoHover, kPseudoPressed, kPseudoLink, kPseudoVisited}) {
    if (rule.m_fields[f] == 0) continue;
    named = true;
    if (state.m_fields[f] != 2) return false;
  }
  return named;
}

// ---- the rules of one layout ----

namespace {

// Is `item` the first element among its parent's children (text before it does not count)?
bool IsFirstElementChild(const CExtRichContentItem& item) {
  if (!item.m_pParent) return false;
  for (const CExtRichContentItem* sibling : item.m_pParent->m_children)
    if (sibling->IsElement()) return sibling == &item;
  return false;
}

}  // namespace

void CExtRichContentLayout::MergeRulesOf(CExtRichContentItem& item, const char* name,
                                         CExtRichStyleRule& rule,
                                         const CExtRichStyleDescription& parentStyle) {
  const std::string key = name ? std::string(name) : item.TagNameLower();
  if (key.empty()) return;
  CExtRichContentItem* keyItem = FindRuleKey(key);
  if (!keyItem) return;
  CExtRichStyleRule fresh;
  keyItem->ApplyDeclarations(fresh, parentStyle);
  rule.Merge(fresh);
  // State rules win over the plain key, later ones over earlier ones.
  for (CExtRichContentItem* child : keyItem->m_ruleChildren) {
    if (child->m_nKind != kKindRule || !PseudoStateSet::Matches(child->m_state, item.m_state))
      continue;
    const int32_t* named = child->m_state.m_fields;
    // ":before" and ":after" rules belong to the generated content, not to the item itself.
    if (named[kPseudoBefore]) {
      rule.m_pBeforeRule = child;
      continue;
    }
    if (named[kPseudoAfter]) {
      rule.m_pAfterRule = child;
      continue;
    }
    // A first line or first letter rule styles only that part of the text, which is not drawn
    // apart from the element: it must not restyle the whole element.
    if (named[kPseudoFirstLine] || named[kPseudoFirstLetter]) continue;
    // ":first-child" is a condition on the item's place, not a part of it.
    if (named[kPseudoFirstChild] && !IsFirstElementChild(item)) continue;
    fresh.Reset();
    child->ApplyDeclarations(fresh, parentStyle);
    rule.Merge(fresh);
  }
}

// ---- the item's side ----

const CExtRichStyleRule& CExtRichContentItem::Rule() const {
  static const CExtRichStyleRule empty;
  return m_pRule ? *m_pRule : empty;
}

const CExtRichStyleDescription& CExtRichContentItem::Style() const {
  static const CExtRichStyleDescription defaults;
  return m_pStyle ? *m_pStyle : defaults;
}

void CExtRichContentItem::ComputeRule(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  rule.Reset();
  // Declarations are resolved once per item and reused at every layout.
  if (!m_bFilled || !m_pRule) {
    FillRule(rule, parentStyle);
    if (m_pRunTimeRule) rule.Merge(*m_pRunTimeRule);  // they stay until the layout is emptied
    m_bFilled = true;
    m_pRule = m_pLayout->ShareRule(rule);
  } else {
    rule = *m_pRule;
  }
}

void CExtRichContentItem::FillRule(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  ApplyAttributes(rule, parentStyle);
  ApplyDeclarations(rule, parentStyle);  // so an inline "style" wins over every other source
}

void CExtRichContentItem::ApplyAttributes(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  if (m_nKind == kKindRule) return;
  if (m_pClassList) m_pClassList->clear();  // read again when the rule is filled again
  for (CExtRichContentLayout* sheet : m_pLayout->LinkedLayouts())
    sheet->MergeRulesOf(*this, nullptr, rule, parentStyle);
  m_pLayout->MergeRulesOf(*this, nullptr, rule, parentStyle);
  for (CExtRichContentItem* attribute : m_attributes)
    if (attribute->m_nKind == kKindAttribute && !attribute->m_strRaw.empty())
      ApplyAttribute(*this, *attribute, rule, parentStyle);
}

void CExtRichContentItem::ApplyDeclarations(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  for (CExtRichContentItem* attribute : m_attributes) {
    if (attribute->m_nKind != kKindStyleAttribute) continue;
    for (CExtRichContentItem* declaration : attribute->m_attributes)
      ApplyProperty(*this, *declaration, rule, parentStyle);
  }
}

// Alike elements share one record: a long document's memory stays in proportion to its variety,
// not its length.
const CExtRichStyleDescription& CExtRichContentItem::ComputeStyle(const CExtRichStyleDescription& parentStyle) {
  if (m_bComputed && m_pStyle) return *m_pStyle;
  if (IsElement() && m_bFilled && m_pRule) {
    // Laid out again: the rule is kept, and its style under this parent style most likely too,
    // so neither is copied.
    if (const CExtRichStyleDescription* known = m_pLayout->KnownStyle(m_pRule, &parentStyle, m_bBlockDisplay)) {
      m_pStyle = known;
      m_bComputed = true;
      return *m_pStyle;
    }
  }
  CExtRichStyleDescription style;
  if (IsElement()) {
    CExtRichStyleRule rule;
    ComputeRule(rule, parentStyle);
    // The same rule under the same parent style gives the same style: found, not computed.
    if (const CExtRichStyleDescription* known = m_pLayout->KnownStyle(m_pRule, &parentStyle, m_bBlockDisplay)) {
      m_pStyle = known;
      m_bComputed = true;
      return *m_pStyle;
    }
    style.CopyFromParent(parentStyle);
    style.Compute(rule, parentStyle);
    if (m_bBlockDisplay && !rule.IsDeclared(kDisplay)) style.m_enums[kDisplay] = 1;
    m_pStyle = m_pLayout->ShareStyle(style);
    m_pLayout->RememberStyle(m_pRule, &parentStyle, m_bBlockDisplay, m_pStyle);
    m_bComputed = true;
    return *m_pStyle;
  }
  style.CopyFromParent(parentStyle);
  if (m_nKind == kKindRoot) style.Assign(parentStyle);
  m_pStyle = m_pLayout->ShareStyle(style);
  m_bComputed = true;
  return *m_pStyle;
}

bool CExtRichContentItem::ApplyRunTimeDeclarations(std::string_view declarations,
                                                   const CExtRichStyleDescription& parentStyle) {
  std::string escaped;
  for (char c : declarations) {
    if (c == '"') escaped += '\\';
    escaped += c;
  }
  CExtRichContentItem* scratch = m_pLayout->NewItem(kKindRule);
  scratch->m_strName = "$$TempClassName$$ style=\"" + escaped + "\"";
  if (!scratch->ParseTagText()) return false;
  CExtRichStyleRule declared;
  scratch->ApplyDeclarations(declared, parentStyle);
  if (!m_bFilled) {
    CExtRichStyleRule filled;
    ComputeRule(filled, parentStyle);
  }
  if (!m_pRunTimeRule) m_pRunTimeRule = std::make_unique<CExtRichStyleRule>();
  m_pRunTimeRule->Merge(declared);
  CExtRichStyleRule own = Rule();
  own.Merge(declared);
  m_pRule = m_pLayout->ShareRule(own);
  CExtRichStyleDescription style;
  style.CopyFromParent(parentStyle);
  style.Compute(own, parentStyle);
  m_pStyle = m_pLayout->ShareStyle(style);
  m_bFilled = true;
  m_bComputed = true;
  return true;
}

bool CExtRichContentItem::SetState(const PseudoStateSet& fields, int32_t value, bool recursive) {
  std::vector<CExtRichContentItem*> work{this};
  bool changed = false;
  while (!work.empty()) {
    CExtRichContentItem* item = work.back();
    work.pop_back();
    if (item->m_nKind >= kKindAttribute) continue;
    // A sink that answers the query takes the change over.
    if (item->m_pLayout->QueryItemState(*item, fields, value)) continue;
    for (int f = 0; f < kPseudoFieldCount; ++f)
      if (fields.m_fields[f] != 0) item->m_state.m_fields[f] = value;
    // State rules take part in the item's own rule, so it is resolved again.
    item->m_bFilled = false;
    item->m_bComputed = false;
    changed = true;
    if (recursive)
      for (CExtRichContentItem* child : item->m_children)
        if (child->m_nKind == kKindTag) work.push_back(child);
  }
  return changed;
}

}  // namespace qmk::toolkit::richcontent
