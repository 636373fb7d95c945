// bench_richcontent.cpp: parse and cascade throughput of the rich content engine on a generated
// 1 MB document with a style sheet, beside litehtml reading the same text when it is installed;
// and the time per byte of inputs that could turn quadratic (long attributes, long style
// attributes, deep nesting, many sibling tables) from 1 KB to 1 MB.
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"

#include "litehtml_host.h"

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
class NullContainer : public qmk::bench::LitehtmlPageHost {
 public:
  NullContainer() : LitehtmlPageHost(800, 600, "sans") {}
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
  int text_width(const litehtml::tchar_t* text, litehtml::uint_ptr) override {
    return static_cast<int>(std::char_traits<litehtml::tchar_t>::length(text)) * 7;
  }
  void draw_text(litehtml::uint_ptr, const litehtml::tchar_t*, litehtml::uint_ptr, litehtml::web_color,
                 const litehtml::position&) override {}
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
