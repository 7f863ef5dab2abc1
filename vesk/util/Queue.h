/// \file
/// CQueue<T>: a first-in, first-out queue of values.
#ifndef VESK_UTIL_QUEUE_H
#define VESK_UTIL_QUEUE_H

#include "vesk/util/EmptyQueueException.h"
#include "vesk/util/RingBuffer.h"

namespace vesk {
namespace util {

/// A queue of T (copied in, moved out), kept in a circular array whose
/// capacity follows the vectors' rules: it grows to a multiple of the growth
/// step and shrinks back after removals. Dequeue and Peek on an empty queue
/// throw CEmptyQueueException.
template <class T>
class CQueue : public vesk::base::CBase {
 public:
  /// A growth step of 0 is taken as 10.
  explicit CQueue(unsigned int initialCapacity = 0, unsigned int growthStep = 10)
      : m_elements(initialCapacity, growthStep, "vesk/util/Queue") {}

  /// Number of elements.
  unsigned int GetSize() const { return m_elements.GetSize(); }
  /// Whether the queue holds nothing.
  bool IsEmpty() const { return m_elements.GetSize() == 0; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_elements.GetCapacity(); }

  /// Appends value at the tail.
  void Enqueue(const T& value) { m_elements.PushBack(value); }
  /// Removes and returns the head (the oldest element).
  T Dequeue() {
    CheckNotEmpty(__LINE__);
    return m_elements.PopFront();
  }
  ///@{
  /// The head, left in the queue.
  T& Peek() {
    CheckNotEmpty(__LINE__);
    return m_elements.At(0);
  }
  const T& Peek() const {
    CheckNotEmpty(__LINE__);
    return m_elements.At(0);
  }
  ///@}
  /// Element i counted from the head; throws CEmptyQueueException when there
  /// is no such element.
  const T& GetElementAt(unsigned int i) const {
    if (i >= m_elements.GetSize()) throw CEmptyQueueException("vesk/util/Queue", __LINE__);
    return m_elements.At(i);
  }
  /// Removes every element; the array shrinks to one growth step.
  void RemoveAll() { m_elements.RemoveAll(); }

 private:
  void CheckNotEmpty(int line) const {
    if (m_elements.GetSize() == 0)
      throw CEmptyQueueException("vesk/util/Queue", static_cast<unsigned int>(line));
  }

  CRingBuffer<T> m_elements;
};

}  // namespace util
}  // namespace vesk

#endif
