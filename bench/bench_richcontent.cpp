// bench_richcontent.cpp: parse and cascade throughput of the rich content engine on a generated
// 1 MB document with a style sheet, beside litehtml reading the same text when it is installed;
// and the time per byte of inputs that could turn quadratic (long attributes, long style
// attributes, deep nesting, many sibling tables) from 1 KB to 1 MB.
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"

#ifdef QMK_BENCH_LITEHTML
#include <litehtml.h>
#endif

namespace {

using namespace qmk::toolkit::richcontent;

const char* const kSheet =
    "body { margin: 8px; font-family: arial, sans-serif; color: #222 }\n"
    "h1, h2 { color: navy; margin: 0.5em 0 }\n"
    ".note { background-color: #ffffe0; border: 1px solid #cc9; padding: 4px 8px }\n"
    "p.note { font-style: italic }\n"
    ".price { text-align: right; font-weight: bold }\n"
    "td { padding: 2px 4px; border-bottom: 1px dotted gray }\n"
    "th { background: #eee; text-align: left }\n"
    "a { color: #06c; text-decoration: underline }\n"
    "a:hover { color: red }\n"
    "li { margin-left: 1.5em; list-style-type: square }\n"
    ".small { font-size: 80% }\n"
    "em { font-style: italic; color: #555 }\n";

// One section of about 1 KB: headings, paragraphs with classes and inline styles, a table, a
// list, links and entities.
std::string Section(int n) {
  const std::string i = std::to_string(n);
  return "<h2>Section " + i + " &amp; notes</h2>\n"
         "<p class=\"note small\">Answer sheets of batch " + i + " were read at 600 sheets per hour; "
         "<em>three</em> were rejected &mdash; see the <a href=\"log" + i + ".html\">log</a>.</p>\n"
         "<p style=\"color: #333; margin-left: 12px\">The operator checked the hopper, cleared a jam "
         "and restarted the transport. Timing marks were found on every sheet.</p>\n"
         "<table border=1 cellpadding=2><tr><th>Form</th><th>Sheets</th><th class=price>Score</th>"
         "<tr><td>A-" + i + "</td><td>120</td><td class=price>87.5</td>"
         "<tr><td>B-" + i + "</td><td>98</td><td class=price>91.0</td></table>\n"
         "<ul><li>Lamp warm-up: 40 s<li>Read level: 7<li>Stacker: <b>select</b></ul>\n";
}

std::string Document(size_t bytes) {
  std::string html = "<html><head><style>" + std::string(kSheet) + "</style></head><body>\n";
  for (int n = 0; html.size() < bytes; ++n) html += Section(n);
  return html + "</body></html>";
}

void ParseAndCascade(const std::string& text) {
  CExtRichContentLayout layout;
  layout.ParseHtml(text);
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  benchmark::DoNotOptimize(layout.Items().size());
}

void BM_RichContentParseCascade(benchmark::State& state) {
  const std::string html = Document(static_cast<size_t>(state.range(0)));
  CExtRichDocObjectContainerGlobal::Instance();  // the default sheet is read once, before timing
  for (auto _ : state) ParseAndCascade(html);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * html.size()));
}
BENCHMARK(BM_RichContentParseCascade)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

#ifdef QMK_BENCH_LITEHTML
// A container that measures nothing and draws nothing: only parsing and styling are timed.
class NullContainer : public litehtml::document_container {
 public:
  litehtml::uint_ptr create_font(const litehtml::tchar_t*, int size, int, litehtml::font_style, unsigned int,
                                 litehtml::font_metrics* fm) override {
    if (fm) {
      fm->ascent = size * 4 / 5;
      fm->descent = size / 5;
      fm->height = size;
      fm->x_height = size / 2;
    }
    return 1;
  }
  void delete_font(litehtml::uint_ptr) override {}
  int text_width(const litehtml::tchar_t* text, litehtml::uint_ptr) override {
    return static_cast<int>(std::char_traits<litehtml::tchar_t>::length(text)) * 7;
  }
  void draw_text(litehtml::uint_ptr, const litehtml::tchar_t*, litehtml::uint_ptr, litehtml::web_color,
                 const litehtml::position&) override {}
  int pt_to_px(int pt) const override { return pt * 96 / 72; }
  int get_default_font_size() const override { return 13; }
  const litehtml::tchar_t* get_default_font_name() const override { return "sans"; }
  void draw_list_marker(litehtml::uint_ptr, const litehtml::list_marker&) override {}
  void load_image(const litehtml::tchar_t*, const litehtml::tchar_t*, bool) override {}
  void get_image_size(const litehtml::tchar_t*, const litehtml::tchar_t*, litehtml::size& sz) override {
    sz.width = sz.height = 0;
  }
  void draw_background(litehtml::uint_ptr, const litehtml::background_paint&) override {}
  void draw_borders(litehtml::uint_ptr, const litehtml::borders&, const litehtml::position&, bool) override {}
  void set_caption(const litehtml::tchar_t*) override {}
  void set_base_url(const litehtml::tchar_t*) override {}
  void link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) override {}
  void on_anchor_click(const litehtml::tchar_t*, const litehtml::element::ptr&) override {}
  void set_cursor(const litehtml::tchar_t*) override {}
  void transform_text(litehtml::tstring&, litehtml::text_transform) override {}
  void import_css(litehtml::tstring&, const litehtml::tstring&, litehtml::tstring&) override {}
  void set_clip(const litehtml::position&, const litehtml::border_radiuses&, bool, bool) override {}
  void del_clip() override {}
  void get_client_rect(litehtml::position& client) const override {
    client.x = client.y = 0;
    client.width = 800;
    client.height = 600;
  }
  std::shared_ptr<litehtml::element> create_element(const litehtml::tchar_t*, const litehtml::string_map&,
                                                    const std::shared_ptr<litehtml::document>&) override {
    return nullptr;
  }
  void get_media_features(litehtml::media_features& media) const override {
    media.type = litehtml::media_type_screen;
    media.width = media.device_width = 800;
    media.height = media.device_height = 600;
    media.color = 8;
    media.monochrome = 0;
    media.color_index = 256;
    media.resolution = 96;
  }
  void get_language(litehtml::tstring& language, litehtml::tstring& culture) const override {
    language = "en";
    culture.clear();
  }
};

// The same document, with the same default sheet as the master sheet.
void BM_LitehtmlParseCascade(benchmark::State& state) {
  const std::string html = Document(static_cast<size_t>(state.range(0)));
  litehtml::context context;
  context.load_master_stylesheet(std::string(DefaultStyleSheetText()).c_str());
  NullContainer container;
  for (auto _ : state) {
    litehtml::document::ptr doc = litehtml::document::createFromString(html.c_str(), &container, &context);
    benchmark::DoNotOptimize(doc.get());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * html.size()));
}
BENCHMARK(BM_LitehtmlParseCascade)->Arg(1 << 20)->Unit(benchmark::kMillisecond);
#endif

// ---- inputs that could grow quadratically: bytes per second must stay flat over the sizes ----

std::string LongAttribute(size_t n) { return "<p title=\"" + std::string(n, 'a') + "\">x</p>"; }

std::string LongStyleAttribute(size_t n) {
  std::string style;
  while (style.size() < n) style += "color: red; margin: 1px 2px; ";
  return "<p style=\"" + style + "\">x</p>";
}

std::string DeepNesting(size_t n) {
  std::string html;
  while (html.size() < n) html += "<div>";
  return html + "x";
}

std::string SiblingTables(size_t n) {
  std::string html;
  while (html.size() < n) html += "<table><tr><td>a<td>b<tr><td>c</table>";
  return html;
}

template <std::string (*Make)(size_t)>
void BM_Growth(benchmark::State& state) {
  const std::string html = Make(static_cast<size_t>(state.range(0)));
  for (auto _ : state) ParseAndCascade(html);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * html.size()));
}
BENCHMARK_TEMPLATE(BM_Growth, LongAttribute)->RangeMultiplier(32)->Range(1 << 10, 1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Growth, LongStyleAttribute)->RangeMultiplier(32)->Range(1 << 10, 1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Growth, DeepNesting)->RangeMultiplier(32)->Range(1 << 10, 1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Growth, SiblingTables)->RangeMultiplier(32)->Range(1 << 10, 1 << 20)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
