// alloc_test.cpp: the allocator's two modes, page reuse, release, minimise and the count cap.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "toolkit/grid/alloc.h"

using namespace qmk::toolkit::grid;

namespace {

// Owns one reference and gives it back at the end of the test.
struct Held {
  CExtAlloc* a;
  explicit Held(CExtAlloc* p) : a(p) {}
  ~Held() { a->Release(); }
  CExtAlloc* operator->() const { return a; }
};

TEST(Alloc, BlockCountIsCappedAt100000) {
  struct Case { uint32_t asked, kept; };
  for (const Case c : {Case{0, 0}, {1, 1}, {2, 2}, {100000, 100000}, {100001, 100000}, {4000000000u, 100000}}) {
    Held a(new CExtAlloc(c.asked));
    EXPECT_EQ(a->BlockCount(), c.kept) << c.asked;
  }
}

TEST(Alloc, AlignSizeRoundsUpAndKeepsZero) {
  Held a(new CExtAlloc(0, nullptr, false, false, 8));
  struct Case { size_t in, out; };
  for (const Case c : {Case{0, 0}, {1, 8}, {8, 8}, {9, 16}}) EXPECT_EQ(a->AlignSize(c.in), c.out) << c.in;
  Held plain(new CExtAlloc());
  EXPECT_EQ(plain->GetAlignment(), 1u);
  EXPECT_EQ(plain->AlignSize(13), 13u);
}

TEST(Alloc, PiecesKnowTheirSizeAndOwner) {
  Held a(new CExtAlloc(1, nullptr, false, true));
  Held other(new CExtAlloc(1));
  void* p = a->Alloc(24);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(a->GetSize(p), 24u);
  EXPECT_EQ(a->DidAlloc(p), 1);
  EXPECT_EQ(other->DidAlloc(p), 0);
  EXPECT_EQ(a->DidAlloc(nullptr), -1);
  EXPECT_EQ(static_cast<unsigned char*>(p)[23], 0);  // zeroed
  EXPECT_EQ(a->Realloc(p, 24), p);
  std::memcpy(p, "abc", 4);
  void* q = a->Realloc(p, 100);
  ASSERT_NE(q, nullptr);
  EXPECT_STREQ(static_cast<char*>(q), "abc");
  EXPECT_EQ(a->Realloc(nullptr, 10), nullptr);
  EXPECT_EQ(a->Realloc(q, 0), nullptr);
  a->Free(q);
  EXPECT_EQ(a->BytesHeld(), 0u);
}

TEST(Alloc, PagesReuseTheFirstFreeSlot) {
  Held a(new CExtAlloc(4));
  std::vector<void*> p;
  for (int i = 0; i < 4; ++i) p.push_back(a->Alloc(40));
  EXPECT_EQ(a->PageCount(), 1u);
  for (void* x : p) {
    EXPECT_EQ(a->GetSize(x), 40u);
    EXPECT_EQ(a->DidAlloc(x), 1);
  }
  void* fifth = a->Alloc(40);  // the full page left the list; a new one comes
  EXPECT_EQ(a->PageCount(), 2u);
  a->Free(p[2]);
  a->Free(p[1]);
  // The page that had been full is back at the front; its lowest free slot is taken first.
  EXPECT_EQ(a->Alloc(40), p[1]);
  EXPECT_EQ(a->Alloc(40), p[2]);
  // Another element size gets pages of its own.
  void* small = a->Alloc(8);
  EXPECT_EQ(a->PageCount(), 3u);
  EXPECT_EQ(a->GetSize(small), 8u);
  int outside = 0;
  EXPECT_EQ(a->DidAlloc(&outside), 0);
  EXPECT_EQ(a->GetSize(static_cast<char*>(fifth) + 1), static_cast<size_t>(-1));
}

TEST(Alloc, EmptyPageAloneInItsListIsReleasedAtOnceWhenAsked) {
  Held eager(new CExtAlloc(4, nullptr, true));
  void* p = eager->Alloc(16);
  EXPECT_EQ(eager->PageCount(), 1u);
  eager->Free(p);
  EXPECT_EQ(eager->PageCount(), 0u);
  EXPECT_EQ(eager->BytesHeld(), 0u);

  Held lazy(new CExtAlloc(4));
  p = lazy->Alloc(16);
  lazy->Free(p);
  EXPECT_EQ(lazy->PageCount(), 1u);
  lazy->HeapMinimize();
  EXPECT_EQ(lazy->PageCount(), 0u);
}

TEST(Alloc, MinimizeKeepsEmptyPagesThatShareTheirList) {
  // Only a page whose list links are both null is given back: two empty pages of one size stay.
  Held a(new CExtAlloc(2));
  std::vector<void*> p;
  for (int i = 0; i < 4; ++i) p.push_back(a->Alloc(16));
  EXPECT_EQ(a->PageCount(), 2u);
  for (void* x : p) a->Free(x);
  a->HeapMinimize();
  EXPECT_EQ(a->PageCount(), 2u);
  // Used again, then one page alone in the list empties: that one goes.
  void* x = a->Alloc(16);
  void* y = a->Alloc(16);
  void* z = a->Alloc(16);
  a->Free(z);
  (void)x;
  (void)y;
  a->HeapMinimize();
  EXPECT_EQ(a->PageCount(), 1u);
}

TEST(Alloc, QueryInterfaceAnswersForTwoIdsAndForwardsToTheOuter) {
  Held outer(new CExtAlloc());
  Held inner(new CExtAlloc(0, outer.a));
  void* got = nullptr;
  EXPECT_TRUE(inner->QueryInterface(InterfaceId::kIMalloc, &got));
  EXPECT_EQ(got, static_cast<IMalloc*>(outer.a));
  static_cast<IMalloc*>(got)->Release();
  EXPECT_FALSE(inner->QueryInterface(InterfaceId::kOther, &got));
  EXPECT_EQ(got, nullptr);
  EXPECT_TRUE(outer->QueryInterface(InterfaceId::kIUnknown, &got));
  EXPECT_EQ(got, static_cast<IMalloc*>(outer.a));
  EXPECT_EQ(outer->Release(), 1u);  // the reference QueryInterface added
}

}  // namespace
