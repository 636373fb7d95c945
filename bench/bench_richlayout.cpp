// bench_richlayout.cpp: laying out and painting a long document (mixed paragraphs, lists and
// tables) with pango text, at 10 and 100 pages, so the growth of layout time can be read; beside
// litehtml laying out and drawing the same document on a cairo surface with pango text, when
// it is installed.
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/painter.h"

#include "litehtml_host.h"

#ifdef QMK_BENCH_LITEHTML
#include <cairo.h>
#include <pango/pangocairo.h>

#include <memory>
#include <vector>
#endif

namespace {

using namespace qmk::toolkit::richcontent;

// About one page: a heading, three paragraphs, a list and a small table.
std::string Page(int n) {
  const std::string i = std::to_string(n);
  std::string page = "<h2>Page " + i + "</h2>";
  for (int p = 0; p < 3; ++p)
    page += "<p style=\"text-align: justify\">Answer sheets of batch " + i +
            " were read at six hundred sheets an hour; <b>three</b> were rejected and returned to the "
            "operator, who fed them again after the <span style=\"color: #c00000\">jam</span> was cleared.</p>";
  page += "<ol><li>first step</li><li>second step of the run</li><li>third</li></ol>";
  page += "<table style=\"border-spacing: 2px\"><tr><th>Sheet</th><th>Marks</th><th>Result</th></tr>";
  for (int r = 0; r < 4; ++r)
    page += "<tr><td>" + std::to_string(r) + "</td><td>42 marks</td><td style=\"border: 1px solid gray\">read</td></tr>";
  return page + "</table>";
}

std::string Document(int pages) {
  std::string html = "<html><body>";
  for (int p = 0; p < pages; ++p) html += Page(p);
  return html + "</body></html>";
}

void BM_Layout(benchmark::State& state) {
  CExtRichContentLayout document;
  document.ParseAuto(Document(static_cast<int>(state.range(0))), kFormHtml);
  RichDocumentLayout layout(document);
  for (auto _ : state) {
    layout.LayoutTree({0, 0, 600, 800});
    benchmark::DoNotOptimize(layout.DocumentHeight());
  }
  state.counters["pages"] = static_cast<double>(state.range(0));
}
BENCHMARK(BM_Layout)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

void BM_LayoutAndPaint(benchmark::State& state) {
  CExtRichContentLayout document;
  document.ParseAuto(Document(static_cast<int>(state.range(0))), kFormHtml);
  RichDocumentLayout layout(document);
  qmk::platform::DrawTarget page(600, 800);
  for (auto _ : state) {
    layout.LayoutTree({0, 0, 600, 800});
    // Every page is painted in turn through the same 800 pixel target.
    const int height = layout.DocumentHeight();
    RichContentPainter painter(layout, page);
    for (int top = 0; top < height; top += 800) painter.PaintDocument(0, -top);
  }
}
BENCHMARK(BM_LayoutAndPaint)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

void BM_LayoutGrowth(benchmark::State& state) {
  CExtRichContentLayout document;
  document.ParseAuto(Document(static_cast<int>(state.range(0))), kFormHtml);
  RichDocumentLayout layout(document);
  layout.LayoutTree({0, 0, 600, 800});  // the measure cache is warm, as in a control that lays out again
  for (auto _ : state) {
    layout.LayoutTree({0, 0, 600, 800});
    benchmark::DoNotOptimize(layout.DocumentHeight());
  }
  state.counters["pages"] = static_cast<double>(state.range(0));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LayoutGrowth)->RangeMultiplier(2)->Range(10, 160)->Unit(benchmark::kMillisecond)->Complexity();

#ifdef QMK_BENCH_LITEHTML
// A litehtml host that measures and draws text with pango on the cairo context it is handed,
// and fills backgrounds, borders and markers: the same kind of work as the painter above.
class CairoContainer : public qmk::bench::LitehtmlPageHost {
 public:
  CairoContainer() : LitehtmlPageHost(600, 800, "DejaVu Sans") {}
  ~CairoContainer() {
    for (PangoFontDescription* f : m_fonts) pango_font_description_free(f);
    g_object_unref(m_measure);
    cairo_destroy(m_measureCr);
    cairo_surface_destroy(m_measureSurface);
  }
  litehtml::uint_ptr create_font(const litehtml::tchar_t* face, int size, int weight, litehtml::font_style italic,
                                 unsigned int, litehtml::font_metrics* fm) override {
    PangoFontDescription* f = pango_font_description_from_string(face);
    pango_font_description_set_absolute_size(f, size * PANGO_SCALE);
    pango_font_description_set_weight(f, static_cast<PangoWeight>(weight));
    if (italic == litehtml::fontStyleItalic) pango_font_description_set_style(f, PANGO_STYLE_ITALIC);
    m_fonts.push_back(f);
    if (fm) {
      pango_layout_set_font_description(m_measure, f);
      pango_layout_set_text(m_measure, "x", 1);
      int w = 0, h = 0;
      pango_layout_get_pixel_size(m_measure, &w, &h);
      fm->height = h;
      fm->ascent = h * 4 / 5;
      fm->descent = h - fm->ascent;
      fm->x_height = w;
    }
    return reinterpret_cast<litehtml::uint_ptr>(f);
  }
  int text_width(const litehtml::tchar_t* text, litehtml::uint_ptr font) override {
    pango_layout_set_font_description(m_measure, reinterpret_cast<PangoFontDescription*>(font));
    pango_layout_set_text(m_measure, text, -1);
    int w = 0, h = 0;
    pango_layout_get_pixel_size(m_measure, &w, &h);
    return w;
  }
  void draw_text(litehtml::uint_ptr hdc, const litehtml::tchar_t* text, litehtml::uint_ptr font,
                 litehtml::web_color color, const litehtml::position& pos) override {
    auto* cr = reinterpret_cast<cairo_t*>(hdc);
    if (pos.y > 800 || pos.y + pos.height < 0) return;  // off the page: pango is not asked
    PangoLayout* layout = pango_cairo_create_layout(cr);
    pango_layout_set_font_description(layout, reinterpret_cast<PangoFontDescription*>(font));
    pango_layout_set_text(layout, text, -1);
    cairo_set_source_rgb(cr, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
    cairo_move_to(cr, pos.x, pos.y);
    pango_cairo_show_layout(cr, layout);
    g_object_unref(layout);
  }
  void draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& m) override {
    Fill(hdc, m.pos, m.color);
  }
  void draw_background(litehtml::uint_ptr hdc, const litehtml::background_paint& bg) override {
    if (bg.color.alpha) Fill(hdc, bg.border_box, bg.color);
  }
  void draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& b, const litehtml::position& p, bool) override {
    if (b.top.width) Fill(hdc, {p.x, p.y, p.width, b.top.width}, b.top.color);
    if (b.bottom.width) Fill(hdc, {p.x, p.bottom() - b.bottom.width, p.width, b.bottom.width}, b.bottom.color);
    if (b.left.width) Fill(hdc, {p.x, p.y, b.left.width, p.height}, b.left.color);
    if (b.right.width) Fill(hdc, {p.right() - b.right.width, p.y, b.right.width, p.height}, b.right.color);
  }

 private:
  static void Fill(litehtml::uint_ptr hdc, const litehtml::position& r, const litehtml::web_color& c) {
    auto* cr = reinterpret_cast<cairo_t*>(hdc);
    cairo_set_source_rgba(cr, c.red / 255.0, c.green / 255.0, c.blue / 255.0, c.alpha / 255.0);
    cairo_rectangle(cr, r.x, r.y, r.width, r.height);
    cairo_fill(cr);
  }

  cairo_surface_t* m_measureSurface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
  cairo_t* m_measureCr = cairo_create(m_measureSurface);
  PangoLayout* m_measure = pango_cairo_create_layout(m_measureCr);
  std::vector<PangoFontDescription*> m_fonts;
};

// The same document with this engine's default sheet as litehtml's master sheet, laid out at
// 600 pixels and drawn page by page on a 600 x 800 cairo surface.
void BM_LitehtmlLayoutAndPaint(benchmark::State& state) {
  const std::string html = Document(static_cast<int>(state.range(0)));
  litehtml::context context;
  context.load_master_stylesheet(std::string(DefaultStyleSheetText()).c_str());
  CairoContainer container;
  litehtml::document::ptr doc = litehtml::document::createFromString(html.c_str(), &container, &context);
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 600, 800);
  cairo_t* cr = cairo_create(surface);
  for (auto _ : state) {
    const int height = doc->render(600) ? doc->height() : 0;
    for (int top = 0; top < height; top += 800) {
      const litehtml::position clip(0, 0, 600, 800);
      doc->draw(reinterpret_cast<litehtml::uint_ptr>(cr), 0, -top, &clip);
    }
  }
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}
BENCHMARK(BM_LitehtmlLayoutAndPaint)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

void BM_LitehtmlLayout(benchmark::State& state) {
  const std::string html = Document(static_cast<int>(state.range(0)));
  litehtml::context context;
  context.load_master_stylesheet(std::string(DefaultStyleSheetText()).c_str());
  CairoContainer container;
  litehtml::document::ptr doc = litehtml::document::createFromString(html.c_str(), &container, &context);
  for (auto _ : state) benchmark::DoNotOptimize(doc->render(600));
}
BENCHMARK(BM_LitehtmlLayout)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
#endif

}  // namespace

BENCHMARK_MAIN();
