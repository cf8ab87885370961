// MatchPattern side by side with glibc fnmatch and std::regex, on typical masks and on pathological pairs.
// A peer that crashes or hangs on a case is reported as such: each peer's first call on a case runs in a
// child process with a time limit, and only a peer that answered there (and agreed with MatchPattern) is
// timed in this process.

#include "validation/Pattern.h"

#include <benchmark/benchmark.h>

#include <cassert>

#include <fnmatch.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <regex>
#include <string>
#include <thread>

namespace quillmar {
namespace {

constexpr auto kProbeLimit = std::chrono::seconds(2);

struct CaseText {
    std::string text;
    std::string pattern;
};

std::u16string Widen(const std::string& s) {
    return std::u16string(s.begin(), s.end());
}

// The index just past the list opening at `open` (the pattern is well-formed).
size_t ListEnd(const std::string& pattern, size_t open) {
    size_t i = open + 1;
    if (pattern[i] == '!') ++i;
    if (pattern[i] == ']') return i + 1;
    while (pattern[i] != ']')
        i += (pattern[i + 1] == '-' && pattern[i + 2] != ']') ? 3 : 1;
    return i + 1;
}

// How a peer writes what our pattern language says. Both peers read lists as we do; `#` becomes a digit list.
struct Dialect {
    std::string_view star;
    std::string_view one;
    std::string_view anyOne; // our `[!]`: any one character
    std::string_view negatedList;
    std::string_view escapedInList;
    std::string_view escapedOutside;
};

// fnmatch: backslash, its escape character, is escaped.
constexpr Dialect kFnmatch { "*", "?", "?", "[!", "\\[", "\\" };
constexpr Dialect kRegex { ".*", ".", ".", "[^", "\\[]^", "\\^$.|?*+()[]{}/" };

std::string Translate(const std::string& pattern, const Dialect& dialect) {
    std::string out;
    for (size_t p = 0; p < pattern.size();) {
        const char ch = pattern[p];
        if (ch == '[') {
            const size_t end = ListEnd(pattern, p);
            const size_t body = pattern[p + 1] == '!' ? p + 2 : p + 1;
            if (body + 1 == end) {
                // `[!]` is any one character; `[]` matches nothing and has no counterpart, so no case uses
                // it.
                assert(body == p + 2 && "no peer has a list that matches nothing");
                out += dialect.anyOne;
            } else {
                out += body == p + 2 ? dialect.negatedList : "[";
                for (size_t i = body; i + 1 < end; ++i) {
                    if (dialect.escapedInList.find(pattern[i]) != std::string_view::npos) out += '\\';
                    out += pattern[i];
                }
                out += ']';
            }
            p = end;
            continue;
        }
        if (ch == '*') {
            out += dialect.star;
        } else if (ch == '?') {
            out += dialect.one;
        } else if (ch == '#') {
            out += "[0-9]";
        } else {
            if (dialect.escapedOutside.find(ch) != std::string_view::npos) out += '\\';
            out += ch;
        }
        ++p;
    }
    return out;
}

std::string ToFnmatch(const std::string& pattern) {
    return Translate(pattern, kFnmatch);
}
std::string ToRegex(const std::string& pattern) {
    return Translate(pattern, kRegex);
}

// Runs `call` once in a child process. Empty when it answered `expected` in time, otherwise what went
// wrong. A peer that overflows its stack or runs for ever thus reports instead of ending the run.
template <class Call> std::string ProbeInChild(const Call& call, bool expected) {
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid < 0) return "could not fork to probe";
    if (pid == 0) {
        const rlimit noCore { 0, 0 };
        setrlimit(RLIMIT_CORE, &noCore);
        try {
            _exit(call() ? 1 : 0);
        } catch (...) {
            _exit(3);
        }
    }
    const auto deadline = std::chrono::steady_clock::now() + kProbeLimit;
    auto pause = std::chrono::microseconds(20);
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= deadline) {
            kill(pid, SIGKILL);
            waitpid(pid, &status, 0);
            return "gave up: no answer within 2 s";
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::microseconds(10000));
    }
    if (WIFSIGNALED(status)) return "crashed (signal " + std::to_string(WTERMSIG(status)) + ")";
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (code == 3) return "threw an exception";
    if (code != 0 && code != 1) return "ended abnormally";
    if ((code == 1) != expected) return "answer differs from MatchPattern";
    return {};
}

// Probe verdicts by benchmark name and text length, so each probe runs once however often the library
// calls the benchmark function.
std::map<std::string, std::string>& Verdicts() {
    static std::map<std::string, std::string> verdicts;
    return verdicts;
}

enum class Peer { kMatchPattern, kFnmatch, kRegex };
constexpr Peer kPeers[] = { Peer::kMatchPattern, Peer::kFnmatch, Peer::kRegex };

const char* PeerName(Peer peer) {
    switch (peer) {
    case Peer::kMatchPattern:
        return "MatchPattern";
    case Peer::kFnmatch:
        return "fnmatch";
    case Peer::kRegex:
        return "std_regex";
    }
    return "";
}

// `make` builds the peer's prepared call; it runs in the child for the probe and again here for timing.
template <class Make>
void TimePeer(benchmark::State& state, const std::string& key, bool expected, const Make& make) {
    auto [verdict, isNew] = Verdicts().try_emplace(key);
    if (isNew) verdict->second = ProbeInChild([&] { return make()(); }, expected);
    if (!verdict->second.empty()) {
        state.SkipWithError(verdict->second.c_str());
        return;
    }
    const auto call = make();
    for (auto _ : state)
        benchmark::DoNotOptimize(call());
}

void RunCase(benchmark::State& state, Peer peer, const std::string& name, const CaseText& c) {
    const std::u16string text = Widen(c.text);
    const std::u16string pattern = Widen(c.pattern);
    state.counters["chars"] = static_cast<double>(c.text.size());
    const std::string key = name + "/" + std::to_string(c.text.size());
    switch (peer) {
    case Peer::kMatchPattern:
        for (auto _ : state)
            benchmark::DoNotOptimize(MatchPattern(text, pattern));
        break;
    case Peer::kFnmatch:
        TimePeer(state, key, MatchPattern(text, pattern), [&] {
            return
                [glob = ToFnmatch(c.pattern), &c] { return fnmatch(glob.c_str(), c.text.c_str(), 0) == 0; };
        });
        break;
    case Peer::kRegex:
        TimePeer(state, key, MatchPattern(text, pattern), [&] {
            return [re = std::regex(ToRegex(c.pattern)), &c] { return std::regex_match(c.text, re); };
        });
        break;
    }
}

struct TypicalCase {
    const char* name;
    const char* pattern;
    const char* text;
};

const TypicalCase kTypicalCases[] = {
    { "ssn/match", "###-##-####", "123-45-6789" },
    { "ssn/miss", "###-##-####", "123-45-678x" },
    { "capitalised/match", "[A-Z][a-z]*", "Hello" },
    { "capitalised/miss", "[A-Z][a-z]*", "hello" },
    { "mail/match", "*@*.*", "someone@example.com" },
    { "mail/miss", "*@*.*", "someone.example.com" },
    { "phone/match", "(###) ###-####", "(555) 123-4567" },
    { "phone/miss", "(###) ###-####", "(555) 123-456" },
    { "time/match", "??:??", "12:34" },
    { "time/miss", "??:??", "12-34" },
    { "no-digit-first/match", "[!0-9]*", "Total" },
    { "no-digit-first/miss", "[!0-9]*", "1st" },
};

std::string Repeat(const std::string& piece, size_t count) {
    std::string out;
    for (size_t i = 0; i < count; ++i)
        out += piece;
    return out;
}

std::string StarredAlphabet() {
    std::string out = "a";
    for (char ch = 'b'; ch <= 'z'; ++ch)
        out += { '*', ch };
    return out;
}

std::string DoubledAlphabet(size_t n) {
    std::string round;
    for (char ch = 'a'; ch <= 'z'; ++ch)
        round += { ch, ch };
    return Repeat(round, n / round.size() + 1) + 'a';
}

struct PathologicalCase {
    const char* name;
    CaseText (*make)(size_t n);
};

const PathologicalCase kPathologicalCases[] = {
    { "a*a*a*a*a*a*a*a*b",
        [](size_t n) {
            return CaseText { Repeat("a", n), "a*a*a*a*a*a*a*a*b" };
        } },
    // With a trailing star the end of the text settles nothing and the star matcher does all the work.
    { "a*a*a*a*a*a*a*a*b*",
        [](size_t n) {
            return CaseText { Repeat("a", n), "a*a*a*a*a*a*a*a*b*" };
        } },
    { "a*b*..*z",
        [](size_t n) {
            return CaseText { DoubledAlphabet(n), StarredAlphabet() };
        } },
    { "*#*#*#*#*#x",
        [](size_t n) {
            return CaseText { Repeat("7", n), "*#*#*#*#*#x" };
        } },
    { "*[a-y]*[a-y]*[a-y]*z",
        [](size_t n) {
            return CaseText { Repeat("a", n), "*[a-y]*[a-y]*[a-y]*z" };
        } },
    { "?{n}",
        [](size_t n) {
            return CaseText { Repeat("a", n), Repeat("?", n) };
        } },
    { "?{n-1}[!a-y]",
        [](size_t n) {
            return CaseText { Repeat("a", n - 1) + 'z', Repeat("?", n - 1) + "[!a-y]" };
        } },
};

[[maybe_unused]] const bool kRegistered = [] {
    for (const TypicalCase& c : kTypicalCases) {
        for (const Peer peer : kPeers) {
            const std::string name = std::string("Typical/") + c.name + "/" + PeerName(peer);
            benchmark::RegisterBenchmark(name.c_str(), [c, peer, name](benchmark::State& state) {
                state.SetLabel(std::string(c.pattern) + " vs " + c.text);
                RunCase(state, peer, name, CaseText { c.text, c.pattern });
            });
        }
    }
    for (const PathologicalCase& c : kPathologicalCases) {
        for (const Peer peer : kPeers) {
            const std::string name = std::string("Pathological/") + c.name + "/" + PeerName(peer);
            benchmark::RegisterBenchmark(name.c_str(),
                [c, peer, name](benchmark::State& state) {
                    const size_t n = static_cast<size_t>(state.range(0));
                    state.SetLabel(c.name);
                    RunCase(state, peer, name, c.make(n));
                })
                ->Arg(1000)
                ->Arg(4096)
                ->Arg(16384)
                ->Arg(65536)
                ->Unit(benchmark::kMicrosecond);
        }
    }
    return true;
}();

} // namespace
} // namespace quillmar

BENCHMARK_MAIN();
