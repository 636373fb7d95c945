// layout.h: CExtRichContentLayout, the owner of a rich content document: its items, the markup,
// style sheet and plain text readers, its style rules and the sheets it links.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "toolkit/richcontent/item.h"
#include "toolkit/richcontent/style_pool.h"

namespace qmk::toolkit::richcontent {

class CExtRichDocObjectContainer;

// Forms of a source text.
enum SourceForm : int { kFormDetect = 0, kFormHtml = 1, kFormCss = 2, kFormPlain = 3 };

// Sinks that hear about a document: state queries and class names.
class CExtRichContentEvents {
 public:
  virtual ~CExtRichContentEvents() = default;
  // Asked before an item's state changes; true ends the query (the first sink that answers).
  virtual bool OnQueryItemState(CExtRichContentItem& /*item*/, const PseudoStateSet& /*fields*/,
                                int32_t /*value*/) { return false; }
  // A class name read from an element's "class" attribute.
  virtual void OnClassName(CExtRichContentItem& /*item*/, const std::string& /*name*/) {}
};

class CExtRichContentEventsBroadcast {
 public:
  void AddSink(CExtRichContentEvents* sink) { m_sinks.push_back(sink); }
  void RemoveSink(CExtRichContentEvents* sink);
  // True when a sink answered the query.
  bool QueryItemState(CExtRichContentItem& item, const PseudoStateSet& fields, int32_t value);
  void BroadcastClassName(CExtRichContentItem& item, const std::string& name);

 private:
  std::vector<CExtRichContentEvents*> m_sinks;
};

class CExtRichContentLayout : public CExtRichContentEventsBroadcast {
 public:
  // The replaceable detector of ParseAuto: gets the text and its length (negative: measure it)
  // and returns a form 1, 2 or 3.
  using Detector = int (*)(const char* text, int length);

  explicit CExtRichContentLayout(int value = 0);
  CExtRichContentLayout(std::string_view text, int form, int value = 0);
  ~CExtRichContentLayout();
  CExtRichContentLayout(const CExtRichContentLayout&) = delete;
  CExtRichContentLayout& operator=(const CExtRichContentLayout&) = delete;

  static void SetDetector(Detector detector);
  static Detector GetDetector();
  static int StandardDetector(const char* text, int length);

  bool ParseAuto(std::string_view text, int form, unsigned flags = 0, int extra = 0, bool errorKeep = true);
  bool ParseHtml(std::string_view text, bool errorKeep = true);
  bool ParseCss(std::string_view text, bool errorKeep = true);
  bool ParsePlainText(std::string_view text, unsigned drawFlags = 0, int reserved = 0, bool errorKeep = true);
  // Back to the empty state: no items, no rules, no linked sheets.
  void Empty();

  int Form() const { return m_nForm; }
  CExtRichContentItem* Root() const { return m_items.empty() || m_items.front()->m_nKind != kKindRoot ? nullptr : m_items.front(); }
  const std::vector<CExtRichContentItem*>& Items() const { return m_items; }
  const std::vector<CExtRichContentItem*>& HeadItems() const { return m_headItems; }
  const std::vector<CExtRichContentLayout*>& LinkedLayouts() const { return m_linked; }
  int ErrorCount() const { return m_nErrors; }

  // The key item of a sheet rule, or null.
  CExtRichContentItem* FindRuleKey(const std::string& key) const;
  // Merges into `rule` the declarations of the key (the item's tag name when `name` is null) and
  // of its state rules that match the item's state.
  void MergeRulesOf(CExtRichContentItem& item, const char* name, CExtRichStyleRule& rule,
                    const CExtRichStyleDescription& parentStyle);

  // Adds the form 2 layout kept under `name` to the linked sheets once; the local container is
  // asked before the global one. False when neither holds such a sheet.
  bool LinkSheet(const std::string& name, bool useLocal = true, bool useGlobal = true);
  CExtRichDocObjectContainer& LocalContainer();

  // Items are made only by the readers; the layout owns them all.
  CExtRichContentItem* NewItem(int kind);
  // Reads one selector of a sheet rule and returns the item its declarations go to, or null.
  CExtRichContentItem* ReadSelector(std::string_view selector);
  // Computes the styles of the root and every element, parents before children, without
  // recursion. Words and spaces use the style of their element.
  void ComputeTree(const CExtRichStyleDescription& rootStyle);

  // One shared copy of each distinct rule and style of this document.
  const CExtRichStyleRule* ShareRule(const CExtRichStyleRule& rule) { return m_sharedRules.Share(rule); }
  const CExtRichStyleDescription* ShareStyle(const CExtRichStyleDescription& style) {
    return m_sharedStyles.Share(style);
  }
  size_t SharedStyleCount() const { return m_sharedStyles.Size(); }
  // The style an element of a shared rule gets under a shared parent style, when it was
  // computed before; null otherwise. Only records of this document are remembered.
  const CExtRichStyleDescription* KnownStyle(const CExtRichStyleRule* rule, const CExtRichStyleDescription* parent,
                                             bool blockDisplay) const;
  void RememberStyle(const CExtRichStyleRule* rule, const CExtRichStyleDescription* parent, bool blockDisplay,
                     const CExtRichStyleDescription* style);

  // Called by the tokenizer.
  void AddToFlatList(CExtRichContentItem* item) { m_items.push_back(item); }
  void CountError() { ++m_nErrors; }

  unsigned m_nFlags = 6;
  int m_nRotation = 0;
  std::string m_strTab = "    ";

 private:
  friend class MarkupReader;
  void BuildTree();
  void LoadLinkedSheets();
  void ReadSheet(std::string_view text);

  std::unique_ptr<CExtRichDocObjectContainer> m_pLocal;
  int m_nForm = 0;
  int m_nValue = 0;
  int m_nErrors = 0;
  std::vector<std::unique_ptr<CExtRichContentItem>> m_arena;
  std::vector<CExtRichContentItem*> m_items;      // the flat list
  std::vector<CExtRichContentItem*> m_headItems;  // kinds 7 to 11
  std::unordered_map<std::string, CExtRichContentItem*> m_rules;
  std::vector<CExtRichContentLayout*> m_linked;
  SharedRecordPool<CExtRichStyleRule> m_sharedRules;
  SharedRecordPool<CExtRichStyleDescription> m_sharedStyles;
  struct StyleKey {
    const CExtRichStyleRule* rule;
    const CExtRichStyleDescription* parent;
    bool block;
    bool operator==(const StyleKey&) const = default;
  };
  struct StyleKeyHash {
    size_t operator()(const StyleKey& k) const {
      return std::hash<const void*>()(k.rule) * 31 + std::hash<const void*>()(k.parent) * 7 + k.block;
    }
  };
  std::unordered_map<StyleKey, const CExtRichStyleDescription*, StyleKeyHash> m_knownStyles;
};

// Text helpers shared by the readers.
std::string ToLower(std::string_view text);
std::string_view Trim(std::string_view text, std::string_view set = " \t\r\n");
bool EqualsNoCase(std::string_view a, std::string_view b);

}  // namespace qmk::toolkit::richcontent
