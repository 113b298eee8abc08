// Every operation of the scene library that the product calls, by who calls it.
#include "operation.h"

namespace
{

OperationRows all()
{
    OperationRows operations;
    for (auto const rows : {structureOperations, attributeOperations, geometryOperations, portfolioOperations,
                            pathOperations, windowOperations}) {
        auto const some = rows();
        operations.insert(operations.end(), some.begin(), some.end());
    }
    return operations;
}

class SceneOperations : public testing::TestWithParam<Operation>
{
};

TEST_P(SceneOperations, DoWhatTheirCallersRelyOn)
{
    Bench bench;
    GetParam().check(bench);
}

INSTANTIATE_TEST_SUITE_P(All, SceneOperations, testing::ValuesIn(all()), [](auto const& row) {
    std::string name = row.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

} // namespace
