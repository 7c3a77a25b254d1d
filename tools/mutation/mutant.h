#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

/// What the operators of the rewritten copy of the sources became. Every function takes the number
/// of its first change, then the operands; it gives what the operator gives, or what the changed
/// one gives where that change is the one asked for.
///
/// MUTANT in the environment is the change in force (none: 0). MUTANT_MAP names a file of MAP_SIZE
/// bytes, in which the byte at a change's number says how it was met: 0 not at all, 1 with the same
/// value always, 2 with another value at least once. All processes of a test share the file.
namespace mutant {

constexpr std::size_t MAP_SIZE = 1 << 16;

inline int number_asked_for() {
  const char* text = std::getenv("MUTANT");
  return text == nullptr ? 0 : std::atoi(text);
}

inline unsigned char* opened_map() {
  const char* name = std::getenv("MUTANT_MAP");
  if (name == nullptr) return nullptr;
  const int file = open(name, O_RDWR);
  if (file < 0) std::abort();
  void* const map = mmap(nullptr, MAP_SIZE, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (map == MAP_FAILED) std::abort();
  close(file);
  return static_cast<unsigned char*>(map);
}

inline const int active = number_asked_for();
inline unsigned char* const met = opened_map();

/// Compares bits, because signed zeros that compare equal may part ways later.
template <class T>
void note(int number, const T& original, const T& changed) {
  const unsigned char how = std::memcmp(&original, &changed, sizeof(T)) == 0 ? 1 : 2;
  if (met[number] < how) met[number] = how;
}

/// The value of one operator with a single change.
template <class T>
T choose(int number, T original, T changed) {
  if (met != nullptr) note(number, original, changed);
  return active == number ? changed : original;
}

/// The value of one operator with two changes, numbered one after the other.
template <class T>
T choose(int number, T original, T first, T second) {
  return choose(number + 1, choose(number, original, first), second);
}

template <class A, class B>
bool less(int n, A a, B b) {
  return choose(n, a < b, a >= b, a <= b);
}
template <class A, class B>
bool less_or_equal(int n, A a, B b) {
  return choose(n, a <= b, a > b, a < b);
}
template <class A, class B>
bool greater(int n, A a, B b) {
  return choose(n, a > b, a <= b, a >= b);
}
template <class A, class B>
bool greater_or_equal(int n, A a, B b) {
  return choose(n, a >= b, (a < b), (a > b));
}
template <class A, class B>
bool equal(int n, A a, B b) {
  return choose(n, a == b, !(a == b));
}
template <class A, class B>
bool unequal(int n, A a, B b) {
  return choose(n, a != b, !(a != b));
}

template <class A, class B>
auto plus(int n, A a, B b) {
  return choose(n, a + b, a - b);
}
template <class A, class B>
auto minus(int n, A a, B b) {
  return choose(n, a - b, a + b);
}
template <class A>
auto negative(int n, A a) {
  return choose(n, -a, +a);
}
template <class A, class B>
A& add(int n, A& a, B b) {
  return a = choose(n, static_cast<A>(a + b), static_cast<A>(a - b));
}
template <class A, class B>
A& subtract(int n, A& a, B b) {
  return a = choose(n, static_cast<A>(a - b), static_cast<A>(a + b));
}

template <class T>
T min(int n, T a, T b) {
  return choose(n, std::min(a, b), a, b);
}
template <class T>
T max(int n, T a, T b) {
  return choose(n, std::max(a, b), a, b);
}
/// Without its lower limit, without its upper one.
template <class T>
T clamp(int n, T x, T low, T high) {
  return choose(n, std::clamp(x, low, high), std::min(x, high), std::max(x, low));
}
/// A limit that is a function of the house's own: without it.
template <class Limit, class T>
T limited(int n, Limit limit, T x) {
  return choose(n, limit(x), x);
}

}  // namespace mutant
