#include "cli/Teller.h"

#include "cli/Project.h"

using namespace designspec;

void Teller::Tell(const Problems& problems)
{
    m_failed = m_failed || HasError(problems);
    for (const Problem& problem : problems)
        if (m_told.insert(problem.Text()).second) Complain(problem.Text());
}
