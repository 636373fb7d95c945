// cmd_markup.cpp: qmkscan markup: reads a rich content document (and a style sheet), and prints
// the item tree with kinds, error codes and each element's computed style where it differs from
// the defaults.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "commands.h"
#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/style_text.h"

namespace qmkscan {
namespace {

namespace rc = qmk::toolkit::richcontent;

bool ReadAll(const std::string& path, std::string& text) {
  if (path == "-") {
    std::ostringstream all;
    all << std::cin.rdbuf();
    text = all.str();
    return true;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

void PrintItem(const rc::CExtRichContentItem& item, int depth, const rc::CExtRichStyleDescription& defaults) {
  std::printf("%*s%s", depth * 2, "", rc::ItemKindName(item.m_nKind));
  if (!item.m_strName.empty()) std::printf(" \"%s\"", item.m_strName.c_str());
  if (item.m_nError) std::printf(" error %d", item.m_nError);
  for (const rc::CExtRichContentItem* a : item.m_attributes)
    if (a->m_nKind == rc::kKindAttribute) std::printf(" %s=\"%s\"", a->m_strName.c_str(), a->m_strRaw.c_str());
  std::printf("\n");
  if (item.IsElement() && item.m_pStyle) {
    const std::vector<std::string> fields = rc::DescribeStyleDifferences(*item.m_pStyle, defaults);
    if (!fields.empty()) {
      std::printf("%*s  {", depth * 2, "");
      for (size_t i = 0; i < fields.size(); ++i) std::printf("%s%s", i ? "; " : "", fields[i].c_str());
      std::printf("}\n");
    }
  }
}

// Depth first without recursion, so deep documents print too.
void PrintTree(const rc::CExtRichContentItem& root) {
  const rc::CExtRichStyleDescription defaults;
  std::vector<std::pair<const rc::CExtRichContentItem*, int>> work{{&root, 0}};
  while (!work.empty()) {
    auto [item, depth] = work.back();
    work.pop_back();
    PrintItem(*item, depth, defaults);
    for (auto child = item->m_children.rbegin(); child != item->m_children.rend(); ++child)
      work.emplace_back(*child, depth + 1);
  }
}

// Closing tags that matched nothing stay in the flat list only; they are listed apart.
void PrintUnmatched(const rc::CExtRichContentLayout& layout) {
  for (const rc::CExtRichContentItem* item : layout.Items())
    if (item->m_bClosing && item->m_nError)
      std::printf("closing tag \"%s\" error %d\n", item->m_strName.c_str(), item->m_nError);
}

}  // namespace

int RunMarkup(Args& args) {
  const std::optional<std::string> cssPath = args.Option("css");
  if (!args.NoUnknownOptions("markup")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan markup FILE|- [--css FILE]\n");
    return 2;
  }
  std::string text, css;
  if (!ReadAll(args.rest()[0], text)) {
    std::fprintf(stderr, "qmkscan markup: cannot read \"%s\"\n", args.rest()[0].c_str());
    return 1;
  }
  if (cssPath && !ReadAll(*cssPath, css)) {
    std::fprintf(stderr, "qmkscan markup: cannot read the style sheet \"%s\"\n", cssPath->c_str());
    return 1;
  }
  rc::CExtRichContentLayout layout;
  if (cssPath) {
    auto sheet = std::make_unique<rc::CExtRichDocObjectLayoutKeeper>(*cssPath);
    sheet->SetText(css, rc::kFormCss);
    layout.LocalContainer().Add(std::move(sheet), true);
  }
  const bool clean = layout.ParseAuto(text, rc::kFormHtml);
  if (cssPath) layout.LinkSheet(*cssPath);
  const rc::CExtRichStyleDescription rootStyle;
  layout.ComputeTree(rootStyle);
  if (const rc::CExtRichContentItem* root = layout.Root()) PrintTree(*root);
  PrintUnmatched(layout);
  std::printf("%s: %d error%s\n", clean ? "parsed" : "parsed with errors", layout.ErrorCount(),
              layout.ErrorCount() == 1 ? "" : "s");
  return clean ? 0 : 1;
}

}  // namespace qmkscan
