// Runs under Wine. KV_ORIGEN names an ODBC data source over an empty SQLite file; without it what needs one is skipped.

#include <gtest/gtest.h>

#include "tests/com/AdoFalso.h"

namespace {

class SinRestos : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*prueba*/) override {
        EXPECT_EQ(0, kv::prueba::Global().vivos) << "referencias sin soltar";
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new SinRestos);
    return FAILED(CoInitialize(nullptr)) ? 2 : RUN_ALL_TESTS();
}
