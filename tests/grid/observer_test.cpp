// observer_test.cpp: the observer hears of every insert and removal of both stores.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "toolkit/grid/provider_memory.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;

namespace {

struct Heard : IGridDataObserver {
  std::vector<std::string> events;
  void OnSeriesInsert(bool columns, int position, int count) override {
    events.push_back(std::string(columns ? "columns" : "rows") + " +" + std::to_string(position) + "," + std::to_string(count));
  }
  void OnSeriesRemove(bool columns, int position, int count) override {
    events.push_back(std::string(columns ? "columns" : "rows") + " -" + std::to_string(position) + "," + std::to_string(count));
  }
};

template <class P>
std::vector<std::string> Changes() {
  P p;
  Heard heard;
  p.SetObserver(&heard);
  p.ColumnInsert(0, 3);
  p.RowInsert(0, 2);
  p.ColumnInsert(1, 0);   // nothing changes, nothing is told
  p.ColumnRemove(2, 5);   // refused
  p.RowRemove(1, 1);
  p.ColumnRemove(0, 1);
  return heard.events;
}

TEST(Observer, HearsChangesNotRefusals) {
  const std::vector<std::string> want{"columns +0,3", "rows +0,2", "rows -1,1", "columns -0,1"};
  EXPECT_EQ(Changes<CExtGridDataProviderSparse>(), want);
  EXPECT_EQ(Changes<CExtGridDataProviderMemory>(), want);
}

}  // namespace
