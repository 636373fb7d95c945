// bench_richlayout.cpp: laying out and painting a long document (mixed paragraphs, lists and
// tables) with pango text, at 10 and 100 pages, so the growth of layout time can be read.
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/richcontent/painter.h"

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

}  // namespace

BENCHMARK_MAIN();
