// item.h: CExtRichContentItem, one node of a rich content document (element, text, attribute,
// declaration or style rule), with its kinds, error codes and pseudo state set.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

class CExtRichContentLayout;

enum ItemKind : int {
  kKindRoot = -1,
  kKindWord = 0,
  kKindSpace = 1,
  kKindTag = 2,
  kKindAttribute = 3,
  kKindStyleAttribute = 4,
  kKindValue = 5,
  kKindRule = 6,
  kKindTitle = 7,
  kKindStyle = 8,
  kKindScript = 9,
  kKindMeta = 10,
  kKindLink = 11,
};

enum ItemError : int {
  kErrorNone = 0,
  kErrorUnmatchedClose = 1,
  kErrorTagText = 2,
  kErrorLeftOpen = 3,
  kErrorEmptyName = 4,
  kErrorTextRun = 5,
  kErrorSheetLoad = 6,
};

enum PseudoField : int {
  kPseudoAfter, kPseudoBefore, kPseudoFirstChild, kPseudoFirstLetter, kPseudoFirstLine,
  kPseudoDisabled, kPseudoActive, kPseudoFocus, kPseudoSelection, kPseudoHover, kPseudoPressed,
  kPseudoReserved, kPseudoLink, kPseudoVisited, kPseudoFieldCount
};

// Fourteen fields, each 0 (not named) or 2 (named).
struct PseudoStateSet {
  int32_t m_fields[kPseudoFieldCount] = {};

  void Clear() { *this = PseudoStateSet(); }
  bool IsEmpty() const;
  // Copies the non-zero fields of `other`.
  void MergeFrom(const PseudoStateSet& other);
  bool operator==(const PseudoStateSet&) const = default;
  // Does a rule carrying `rule` apply to an item in `state`?
  static bool Matches(const PseudoStateSet& rule, const PseudoStateSet& state);
};

// Text flags of plain text items.
enum TextFlag : unsigned { kTextAcceleratorUnderline = 1, kTextPrefixHidden = 2 };

class CExtRichContentItem {
 public:
  CExtRichContentItem(CExtRichContentLayout* layout, int kind) : m_pLayout(layout), m_nKind(kind) {}
  CExtRichContentItem(const CExtRichContentItem&) = delete;
  CExtRichContentItem& operator=(const CExtRichContentItem&) = delete;

  // The tag name lower-cased.
  std::string TagNameLower() const;
  bool IsVoid();
  bool IsElement() const { return m_nKind == kKindTag || (m_nKind >= kKindTitle && m_nKind <= kKindLink); }
  // Attribute lookup, case-blind; kinds 4 and 6 walk their declarations.
  CExtRichContentItem* FindAttribute(std::string_view name, const CExtRichContentItem* after = nullptr) const;

  // Splitters of the markup reader.
  bool ParseTagText();
  bool ParseStyleAttribute();

  // The cascade.
  // The own rule and the computed style; records shared through the layout, so never changed in
  // place. Before they exist these give an empty rule and the default style.
  const CExtRichStyleRule& Rule() const;
  const CExtRichStyleDescription& Style() const;
  void ComputeRule(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
  void FillRule(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
  void ApplyAttributes(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
  void ApplyDeclarations(CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle);
  // Computes the style of this item from its rule and the parent's style (or the defaults).
  const CExtRichStyleDescription& ComputeStyle(const CExtRichStyleDescription& parentStyle);
  // Applies a text of declarations at run time; the result stays until the layout is emptied.
  bool ApplyRunTimeDeclarations(std::string_view declarations, const CExtRichStyleDescription& parentStyle);

  // Item state: sets each named field of `fields` to `value`; with `recursive`, the element
  // children too. Only kinds under 3 have a state. Returns false when sinks refused.
  bool SetState(const PseudoStateSet& fields, int32_t value, bool recursive);

  CExtRichContentItem* m_pParent = nullptr;
  CExtRichContentLayout* m_pLayout;
  int m_nKind;
  int m_nError = kErrorNone;
  // The item's place in the tree when it was last laid out. It sits beside the kind and the
  // parent so that a layout pass over the words of a long document touches one cache line each.
  int m_nLayoutSlot = -1;
  std::string m_strName;       // tag name, word text, attribute or property name
  std::string m_strSecondary;  // the accelerator character of the plain text form
  std::string m_strRaw;        // tag text behind the name; an attribute's value
  bool m_bClosing = false, m_bSelfClosed = false, m_bLayoutPending = false;
  bool m_bCommentInsideStyle = false;
  std::vector<CExtRichContentItem*> m_children;
  std::vector<CExtRichContentItem*> m_attributes;   // kinds 3 and 4, or a rule's declarations
  std::vector<CExtRichContentItem*> m_ruleChildren; // kind 6 items under a key item
  PseudoStateSet m_state;  // the item's state, or the set a rule child carries
  bool m_bFilled = false, m_bComputed = false;
  const CExtRichStyleRule* m_pRule = nullptr;           // owned by the layout's pool
  std::unique_ptr<CExtRichStyleRule> m_pRunTimeRule;  // declarations applied at run time
  const CExtRichStyleDescription* m_pStyle = nullptr;  // owned by the layout's pool
  std::unique_ptr<std::vector<std::string>> m_pClassList;
  int m_nVoid = -1;  // -1 not asked yet
  std::string m_strId, m_strSourceLink, m_strDestinationLink, m_strNameAttr;
  const CExtRichContentItem* m_pLineMetricSource = nullptr;
  unsigned m_nTextFlags = 0;
  bool m_bBlockDisplay = false;  // the plain text form's paragraph
  bool m_bInvisible = false;

 private:
  bool FlushStyleDeclaration(std::string& name, std::string& value);
};

}  // namespace qmk::toolkit::richcontent
