#include "faults/operation.h"

void Complaints::expect(bool holds, const QString &text)
{
    if (!holds)
        m_texts.append(text);
}

Operation::~Operation()
{
}

bool Operation::needsWidgets() const
{
    return false;
}

std::unique_ptr<Operation> makeOperation(const QString &name)
{
    std::unique_ptr<Operation> operation = makeListOperation(name);
    if (!operation)
        operation = makeTreeOperation(name);
    if (!operation)
        operation = makeStickOperation(name);
    return operation;
}
