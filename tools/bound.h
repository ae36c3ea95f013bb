// What tools/mutate puts in place of a comparison: `a < bound < b` is `a <= b`, and `a <= bound <= b` is `a < b`. Of
// reals, no two of which are ever alike to the last bit, it is the same comparison with half as much again for b
// instead.
#pragma once

#include <type_traits>
#include <utility>

namespace mutant {

struct Bound {};
inline constexpr Bound bound;

template <class A>
struct Left {
    const A& a;
};

template <class A, class = void>
inline constexpr bool kReal = false;
template <class A>
inline constexpr bool kReal<A, std::void_t<decltype(+std::declval<const A&>())>> =
    std::is_floating_point_v<std::decay_t<decltype(+std::declval<const A&>())>>;

template <class A>
Left<A> operator<(const A& a, Bound) {
    return {a};
}
template <class A, class B>
bool operator<(Left<A> left, const B& b) {
    if constexpr (kReal<A> || kReal<B>)
        if (b != 0) return left.a < 1.5 * b;
    return left.a <= b;
}
template <class A>
Left<A> operator<=(const A& a, Bound) {
    return {a};
}
template <class A, class B>
bool operator<=(Left<A> left, const B& b) {
    if constexpr (kReal<A> || kReal<B>)
        if (b != 0) return left.a <= 1.5 * b;
    return left.a < b;
}
template <class A>
Left<A> operator>(const A& a, Bound) {
    return {a};
}
template <class A, class B>
bool operator>(Left<A> left, const B& b) {
    if constexpr (kReal<A> || kReal<B>)
        if (b != 0) return left.a > 1.5 * b;
    return left.a >= b;
}
template <class A>
Left<A> operator>=(const A& a, Bound) {
    return {a};
}
template <class A, class B>
bool operator>=(Left<A> left, const B& b) {
    if constexpr (kReal<A> || kReal<B>)
        if (b != 0) return left.a >= 1.5 * b;
    return left.a > b;
}

}  // namespace mutant
