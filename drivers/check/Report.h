// What was found of each clause, and the table of it.
#pragma once

#include <array>
#include <string>

#include "drivers/check/Clauses.h"

namespace check {

class Report {
public:
    // Seen, and as it should be. Never takes back what Break and Advise have said.
    void Keep(Clause clause, const std::string& seen = {});
    // Seen, and against the contract. The first one's text stays; the others are counted.
    void Break(Clause clause, const std::string& seen);
    // Against what the contract advises: told, but no breach.
    void Advise(Clause clause, const std::string& seen);
    // Why it could not be seen; of no effect where it was.
    void Miss(Clause clause, const std::string& why);
    // Miss for every clause that has not been seen and says nothing yet.
    void MissTheRest(const std::string& why);

    bool IsBroken(Clause clause) const;
    int Breaches() const;
    // One line for each clause and one of sums, each ended by a line end.
    std::string Table() const;

private:
    enum class Verdict { NotSeen, Kept, Advice, Broken };
    struct Row {
        Verdict verdict = Verdict::NotSeen;
        std::string seen;
        int more = 0;
    };

    Row& At(Clause clause) { return rows_[Place(clause)]; }
    int Sum(Verdict verdict) const;

    std::array<Row, ClauseTexts.size()> rows_;
};

}  // namespace check
