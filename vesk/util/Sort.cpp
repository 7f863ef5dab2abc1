#include "vesk/util/Sort.h"

#include <cstdint>
#include <cstring>

namespace vesk {
namespace util {

namespace {

// Introspective sort over raw records: median-of-three quicksort, heapsort
// when the recursion gets too deep, insertion sort for short runs.
class CRecordSorter {
 public:
  CRecordSorter(char* base, std::size_t width, const IComparator& comparator)
      : m_base(base), m_width(width), m_comparator(comparator) {}

  void Sort(std::size_t count) {
    unsigned int depth = 0;
    for (std::size_t n = count; n > 1; n >>= 1) depth += 2;
    Intro(0, count, depth);
  }

 private:
  static const std::size_t kShortRun = 16;

  char* At(std::size_t i) const { return m_base + i * m_width; }
  int Compare(std::size_t a, std::size_t b) const { return m_comparator.Compare(At(a), At(b)); }

  void Swap(std::size_t a, std::size_t b) const {
    if (a == b) return;
    char* p = At(a);
    char* q = At(b);
    std::size_t left = m_width;
    while (left >= 8) {
      std::uint64_t x, y;
      std::memcpy(&x, p, 8);
      std::memcpy(&y, q, 8);
      std::memcpy(p, &y, 8);
      std::memcpy(q, &x, 8);
      p += 8;
      q += 8;
      left -= 8;
    }
    while (left-- > 0) {
      char c = *p;
      *p++ = *q;
      *q++ = c;
    }
  }

  void InsertionSort(std::size_t lo, std::size_t hi) const {
    for (std::size_t i = lo + 1; i < hi; ++i) {
      for (std::size_t j = i; j > lo && Compare(j - 1, j) > 0; --j) Swap(j - 1, j);
    }
  }

  void SiftDown(std::size_t lo, std::size_t root, std::size_t n) const {
    for (;;) {
      std::size_t child = 2 * root + 1;
      if (child >= n) return;
      if (child + 1 < n && Compare(lo + child, lo + child + 1) < 0) ++child;
      if (Compare(lo + root, lo + child) >= 0) return;
      Swap(lo + root, lo + child);
      root = child;
    }
  }

  void HeapSort(std::size_t lo, std::size_t hi) const {
    std::size_t n = hi - lo;
    for (std::size_t i = n / 2; i-- > 0;) SiftDown(lo, i, n);
    for (std::size_t end = n; end-- > 1;) {
      Swap(lo, lo + end);
      SiftDown(lo, 0, end);
    }
  }

  void Intro(std::size_t lo, std::size_t hi, unsigned int depth) const {
    while (hi - lo > kShortRun) {
      if (depth == 0) {
        HeapSort(lo, hi);
        return;
      }
      --depth;
      // Median of lo, mid and hi - 1 ends up at lo as the pivot.
      std::size_t mid = lo + (hi - lo) / 2;
      if (Compare(mid, lo) < 0) Swap(mid, lo);
      if (Compare(hi - 1, mid) < 0) {
        Swap(hi - 1, mid);
        if (Compare(mid, lo) < 0) Swap(mid, lo);
      }
      Swap(lo, mid);
      std::size_t i = lo + 1;
      std::size_t j = hi - 1;
      for (;;) {
        while (i <= j && Compare(i, lo) < 0) ++i;
        while (i <= j && Compare(j, lo) > 0) --j;
        if (i >= j) break;
        Swap(i, j);
        ++i;
        --j;
      }
      Swap(lo, j);
      // Recurse into the shorter side, loop over the longer one.
      if (j - lo < hi - j - 1) {
        Intro(lo, j, depth);
        lo = j + 1;
      } else {
        Intro(j + 1, hi, depth);
        hi = j;
      }
    }
    InsertionSort(lo, hi);
  }

  char* m_base;
  std::size_t m_width;
  const IComparator& m_comparator;
};

}  // namespace

void qsort(void* base, std::size_t count, std::size_t width, const IComparator& comparator) {
  if (!base || count < 2 || width == 0) return;
  CRecordSorter(static_cast<char*>(base), width, comparator).Sort(count);
}

}  // namespace util
}  // namespace vesk
