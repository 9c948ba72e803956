// The data behind CharTables: runs of case pairs and ranges of letters above ASCII, both in rising order.
#pragma once

namespace KxPlat {

// Lower-case characters first, first + step, ..., last; their upper case lies `delta` away.
struct CaseRun {
    int first, last, step, delta;
};
struct CharRange {
    int first, last;
};

extern const CaseRun kCaseRuns[];
extern const int kCaseRunCount;
extern const CharRange kLetters[];
extern const int kLetterCount;

}   // namespace KxPlat
