// cmd_render.cpp: qmkscan render: lays out and paints a rich content document to a PNG file, or
// prints the item under a point with the items that hold it.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "commands.h"
#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/hit_test.h"
#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/render.h"

namespace qmkscan {
namespace {

namespace rc = qmk::toolkit::richcontent;

bool ReadFileText(const std::string& path, std::string& text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

bool ParsePoint(const std::string& text, int& x, int& y) {
  char extra = 0;
  return std::sscanf(text.c_str(), "%d,%d%c", &x, &y, &extra) == 2;
}

void PrintHit(rc::RichDocumentLayout& layout, int x, int y) {
  rc::RichHitTestRecord record;
  record.x = x;
  record.y = y;
  if (!rc::HitTest(layout, record)) {
    std::printf("nothing at %d,%d\n", x, y);
    return;
  }
  for (const rc::CExtRichContentItem* item : record.items) {
    const rc::RichItemBox* b = layout.BoxOf(item);
    std::printf("%s", item->m_strName.empty() ? "(document)" : item->m_strName.c_str());
    if (!item->m_strId.empty()) std::printf(" id=\"%s\"", item->m_strId.c_str());
    if (b) std::printf(" [%d,%d %dx%d]", b->box.left, b->box.top, b->box.Width(), b->box.Height());
    std::printf("\n");
  }
}

}  // namespace

int RunRender(Args& args) {
  const std::optional<std::string> png = args.Option("png");
  const std::optional<std::string> cssPath = args.Option("css");
  const std::optional<std::string> hit = args.Option("hit");
  const std::optional<long> width = IntOption(args, "width", 600, 1, 16384);
  if (!width || !args.NoUnknownOptions("render")) return 2;
  int hx = 0, hy = 0;
  if (args.rest().size() != 1 || (!png && !hit) || (hit && !ParsePoint(*hit, hx, hy))) {
    std::fprintf(stderr, "usage: qmkscan render FILE --png OUT [--width W] [--css FILE] [--hit X,Y]\n");
    return 2;
  }
  std::string text, css;
  if (!ReadFileText(args.rest()[0], text)) {
    std::fprintf(stderr, "qmkscan render: cannot read \"%s\"\n", args.rest()[0].c_str());
    return 1;
  }
  if (cssPath && !ReadFileText(*cssPath, css)) {
    std::fprintf(stderr, "qmkscan render: cannot read the style sheet \"%s\"\n", cssPath->c_str());
    return 1;
  }
  rc::CExtRichContentLayout document;
  if (cssPath) {
    auto sheet = std::make_unique<rc::CExtRichDocObjectLayoutKeeper>(*cssPath);
    sheet->SetText(css, rc::kFormCss);
    document.LocalContainer().Add(std::move(sheet), true);
  }
  document.ParseAuto(text, rc::kFormHtml);
  if (cssPath) document.LinkSheet(*cssPath);
  rc::RichDocumentLayout layout(document);
  std::unique_ptr<qmk::platform::DrawTarget> page = rc::RenderDocument(layout, static_cast<int>(*width));
  if (!page) {
    std::fprintf(stderr, "qmkscan render: the page could not be made\n");
    return 1;
  }
  if (hit) PrintHit(layout, hx, hy);
  if (png && !page->WritePng(*png)) {
    std::fprintf(stderr, "qmkscan render: cannot write \"%s\"\n", png->c_str());
    return 1;
  }
  return 0;
}

}  // namespace qmkscan
