/// \file
/// CStack<T>: a last-in, first-out stack of values.
#ifndef VESK_UTIL_STACK_H
#define VESK_UTIL_STACK_H

#include "vesk/util/EmptyStackException.h"
#include "vesk/util/RingBuffer.h"

namespace vesk {
namespace util {

/// A stack of T (copied in, moved out). Capacity follows the vectors' rules:
/// it grows to a multiple of the growth step and shrinks back after pops.
/// Pop and Peek on an empty stack throw CEmptyStackException.
template <class T>
class CStack : public vesk::base::CBase {
 public:
  /// A growth step of 0 is taken as 10.
  explicit CStack(unsigned int initialCapacity = 0, unsigned int growthStep = 10)
      : m_elements(initialCapacity, growthStep, "vesk/util/Stack") {}

  /// Number of elements.
  unsigned int GetSize() const { return m_elements.GetSize(); }
  /// Whether the stack holds nothing.
  bool IsEmpty() const { return m_elements.GetSize() == 0; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_elements.GetCapacity(); }

  /// Puts a copy of value on top.
  void Push(const T& value) { m_elements.PushBack(value); }
  /// Removes and returns the top element.
  T Pop() {
    CheckNotEmpty(__LINE__);
    return m_elements.PopBack();
  }
  ///@{
  /// The top element, left on the stack.
  T& Peek() {
    CheckNotEmpty(__LINE__);
    return m_elements.At(m_elements.GetSize() - 1);
  }
  const T& Peek() const {
    CheckNotEmpty(__LINE__);
    return m_elements.At(m_elements.GetSize() - 1);
  }
  ///@}
  /// Element i counted from the bottom (0) to the top (size - 1); throws
  /// CEmptyStackException when there is no such element.
  const T& GetElementAt(unsigned int i) const {
    if (i >= m_elements.GetSize()) throw CEmptyStackException("vesk/util/Stack", __LINE__);
    return m_elements.At(i);
  }
  /// Removes every element; the array shrinks to one growth step.
  void RemoveAll() { m_elements.RemoveAll(); }

 private:
  void CheckNotEmpty(int line) const {
    if (m_elements.GetSize() == 0)
      throw CEmptyStackException("vesk/util/Stack", static_cast<unsigned int>(line));
  }

  CRingBuffer<T> m_elements;
};

}  // namespace util
}  // namespace vesk

#endif
