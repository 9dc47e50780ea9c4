#include "profile_oracle.h"

// Elements printed as prefixed lines in a titled section:
//
//   ------- PRIORITY ------------------------------
//   10 PPR/ELEMENT TEXT                                trimmed: number in columns 1-2, text from 8
//              WRAPPED TEXT                            nine blanks or more: belongs to the line above

namespace oracle {

namespace {

enum class Step { SearchHeader, SearchElement, Elements, Stopped };

const Text hotel = u"------- TRAVEL POLICIES - HOTEL";
const Text car = u"------- TRAVEL POLICIES - CAR";
const Text air = u"------- TRAVEL POLICIES - AIR";

bool endsDisplay(const Text& line) { return found(line, u">") > 0 || found(line, u"END OF DISPLAY") > 0; }

bool endsSection(const Text& line) {
    return mid(line, 1, 1) == u">" || found(line, u"-------") > 0 || found(line, u"END OF DISPLAY") > 0;
}

bool isContinuation(const Text& line) { return trimmed(mid(line, 1, 9)).empty(); }

// The search for the header: returns the next step, with `n` at the line where that step begins.
Step searchHeader(const Text& display, const Text& header, int& n) {
    const Text line = rightTrimmed(screenLine(display, n));
    if (endsDisplay(line)) {
        return Step::Stopped;
    }
    if (found(line, header) == 0) {
        n = add16(n, 1);
        return Step::SearchHeader;
    }
    return Step::SearchElement;
}

void joinContinuations(const Text& display, Text& current, int& n, bool colonJoining) {
    while (true) {
        const Text following = screenLine(display, add16(n, 1));
        if (!isContinuation(following)) {
            return;
        }
        if (mid(current, 1, 1) == u">" || found(current, u"END OF DISPLAY") > 0) {
            return;
        }
        const Text wrapped = trimmed(following);
        if (colonJoining && mid(wrapped, 3, 1) == u":") {
            current = current + u" " + wrapped;
        } else {
            current = current + wrapped;
        }
        n = add16(n, 1);
    }
}

void store(const Text& line, int textColumn, int& count, std::vector<Text>& texts, std::vector<Text>& numbers) {
    count = add16(count, 1);
    const std::size_t index = static_cast<std::size_t>(count);
    texts.resize(index + 1);
    numbers.resize(index + 1);
    texts[index] = trimmed(mid(line, textColumn));
    numbers[index] = trimmed(mid(line, 1, 2));
}

int plain(const Text& display, const Text& header, const Text& prefix, bool colonJoining, std::vector<Text>& texts,
          std::vector<Text>& numbers) {
    int count = 0;
    int n = 0;
    Step step = Step::SearchHeader;
    while (step != Step::Stopped) {
        if (step == Step::SearchHeader) {
            step = searchHeader(display, header, n);
        } else if (step == Step::SearchElement) {
            n = add16(n, 1);
            const Text line = trimmed(screenLine(display, n));
            if (endsSection(line)) {
                n = add16(n, 1);
                step = Step::SearchHeader;
            } else if (found(line, prefix, 1) > 0) {
                step = Step::Elements;
            }
        } else {
            Text current = trimmed(screenLine(display, n));
            if (endsSection(current)) {
                step = Step::Stopped;
            } else {
                joinContinuations(display, current, n, colonJoining);
                store(current, 8, count, texts, numbers);
                n = add16(n, 1);
            }
        }
    }
    return count;
}

int policy(const Text& display, const Text& header, const Text& prefix, int start, int width, std::vector<Text>& texts,
           std::vector<Text>& numbers) {
    int count = 0;
    int n = 0;
    Step step = Step::SearchHeader;
    while (step != Step::Stopped) {
        if (step == Step::SearchHeader) {
            step = searchHeader(display, header, n);
        } else if (step == Step::SearchElement) {
            n = add16(n, 1);
            const Text line = trimmed(screenLine(display, n));
            if (endsSection(line)) {
                step = Step::Stopped;
            } else if (found(line, prefix, start) > 0) {
                step = Step::Elements;
            }
        } else {
            Text current = trimmed(screenLine(display, n));
            if (endsSection(current)) {
                step = Step::Stopped;
            } else {
                joinContinuations(display, current, n, true);
                if (!trimmed(mid(current, 3, width)).empty() && found(current, prefix, 3) == 0) {
                    step = Step::SearchElement;
                } else {
                    store(current, 8, count, texts, numbers);
                    n = add16(n, 1);
                }
            }
        }
    }
    return count;
}

// Up to ten unprefixed lines after the first one.
void globalSearchFollowers(const Text& display, int n, int& count, std::vector<Text>& texts,
                           std::vector<Text>& numbers) {
    const int last = add16(n, 10);
    n = add16(n, 1);
    while (n <= last) {
        const Text line = trimmed(screenLine(display, n));
        if (mid(line, 3, 5) != u"     ") {
            return;
        }
        store(line, 7, count, texts, numbers);
        n = add16(n, 1);
    }
}

int globalSearch(const Text& display, std::vector<Text>& texts, std::vector<Text>& numbers) {
    int count = 0;
    int n = 0;
    while (true) {
        Text line = rightTrimmed(screenLine(display, n));
        if (endsDisplay(line)) {
            return count;
        }
        if (found(line, u"------- GLOBAL SEARCH") > 0) {
            n = add16(n, 1);
            line = trimmed(screenLine(display, n));
            if (found(line, u"PGL/", 3) > 0) {
                store(line, 8, count, texts, numbers);
                globalSearchFollowers(display, n, count, texts, numbers);
                return count;
            }
        }
        n = add16(n, 1);
    }
}

}  // namespace

int ProfileOracle::PPRElementsCount(const Text& display) {
    return raising(5266, [&] {
        if (display.empty()) {
            return 0;
        }
        cutBack("PPR");
        return plain(display, u"------- PRIORITY", u"PPR/", false, lists["strPPRText"], lists["strPPRNumber"]);
    });
}

int ProfileOracle::PGLElementsCount(const Text& display) {
    return raising(5267, [&] {
        if (display.empty()) {
            return 0;
        }
        cutBack("PGL");
        return globalSearch(display, lists["strPGLText"], lists["strPGLNumber"]);
    });
}

int ProfileOracle::PPSElementsCount(const Text& display) {
    return raising(5270, [&] {
        if (display.empty()) {
            return 0;
        }
        cutBack("PPS");
        return plain(display, u"------- PRE-STORED ENTRIES", u"PPS/", true, lists["strPPSText"], lists["strPPSNumber"]);
    });
}

int ProfileOracle::PHIElementsCount(const Text& display) {
    return raising(5272, [&] {
        if (display.empty()) {
            return 0;
        }
        cutBack("PHI");
        return policy(display, hotel, u"PHI/", 1, 5, lists["strPHIText"], lists["strPHINumber"]);
    });
}

// The families that cut their lists back before they test for an empty display.
int ProfileOracle::policyMember(const Text& display, const Text& header, const std::string& family, int start,
                                int width, int number) {
    return raising(number, [&] {
        cutBack(family);
        if (display.empty()) {
            return 0;
        }
        return policy(display, header, wide(family + "/"), start, width, lists["str" + family + "Text"],
                      lists["str" + family + "Number"]);
    });
}

int ProfileOracle::PCIElementsCount(const Text& display) { return policyMember(display, car, "PCI", 3, 5, 5290); }

int ProfileOracle::PPCElementsCount(const Text& display) { return policyMember(display, car, "PPC", 3, 6, 5285); }

int ProfileOracle::PPHElementsCount(const Text& display) { return policyMember(display, hotel, "PPH", 3, 5, 5273); }

int ProfileOracle::PPHElementsCountold(const Text&) { return 0; }

int ProfileOracle::PPAElementsCount(const Text& display) { return policyMember(display, air, "PPA", 3, 5, 5292); }

int ProfileOracle::PPKElementsCount(const Text& display) { return policyMember(display, air, "PPK", 3, 5, 5293); }

int ProfileOracle::PPIElementsCount(const Text& display) { return policyMember(display, air, "PPI", 3, 5, 5280); }

int ProfileOracle::PXCElementsCount(const Text& display) { return policyMember(display, car, "PXC", 3, 5, 5295); }

int ProfileOracle::PXAElementsCount(const Text& display) { return policyMember(display, air, "PXA", 3, 5, 5296); }

int ProfileOracle::PXKElementsCount(const Text& display) { return policyMember(display, air, "PXK", 3, 5, 5281); }

int ProfileOracle::PSHElementsCount(const Text& display) { return policyMember(display, hotel, "PSH", 3, 5, 5282); }

int ProfileOracle::PSCElementsCount(const Text& display) { return policyMember(display, car, "PSC", 3, 5, 5283); }

int ProfileOracle::PPTElementsCount(const Text& display) { return policyMember(display, air, "PPT", 3, 5, 5284); }

int ProfileOracle::PXTElementsCount(const Text& display) { return policyMember(display, air, "PXT", 3, 5, 5286); }

}  // namespace oracle
