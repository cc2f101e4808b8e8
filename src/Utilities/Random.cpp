#include "Utilities/Random.h"

#include <sys/random.h>

#include <array>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace korvane {

namespace {

__extension__ using UInt128 = unsigned __int128;

/// A buffer of random words: one system call fetches 512 of them; a call for each would cost a hundred times
/// as much.
class WordPool {
public:
    std::uint64_t take() {
        if (m_used == m_words.size()) {
            arc4random_buf(m_words.data(), sizeof m_words);
            m_used = 0;
        }
        return std::exchange(m_words[m_used++], 0); // the caller may use the word as a secret
    }

private:
    std::array<std::uint64_t, 512> m_words{};
    std::size_t m_used = m_words.size();
};

/// The high half of a random value times `bound`. (2^64 - bound) mod bound of the 2^64 values are surplus to
/// a uniform distribution: those whose product has a low half below that number. They are rejected.
template <typename Next>
std::uint32_t drawBelow(std::uint32_t bound, const Next& next) {
    assert(bound > 0);
    const auto surplus = (0 - std::uint64_t{bound}) % bound;
    while (true) {
        const auto product = UInt128{next()} * bound;
        if (static_cast<std::uint64_t>(product) >= surplus)
            return static_cast<std::uint32_t>(product >> 64);
    }
}

} // namespace

bool fillRandom(std::span<std::byte> bytes) {
    while (!bytes.empty()) {
        const auto filled = getrandom(bytes.data(), bytes.size(), 0);
        if (filled > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(filled));
        else if (errno != EINTR)
            return false;
    }
    return true;
}

std::uint64_t nextRandom() {
    thread_local WordPool pool;
    return pool.take();
}

std::uint32_t uniformBelow(std::uint32_t bound) {
    return drawBelow(bound, nextRandom);
}

std::uint32_t uniformBelow(std::uint32_t bound, const std::function<std::uint64_t()>& next) {
    return drawBelow(bound, next);
}

int uniformBetween(int first, int last) {
    assert(first <= last && std::int64_t{last} - first < UINT32_MAX);
    const auto count = static_cast<std::uint32_t>(std::int64_t{last} - first + 1);
    return static_cast<int>(first + std::int64_t{uniformBelow(count)});
}

} // namespace korvane
