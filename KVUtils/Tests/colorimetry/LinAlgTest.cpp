#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {

template <class T>
class LinAlgTest : public testing::Test {
  protected:
    static constexpr double Unit = std::numeric_limits<T>::epsilon();

    static std::vector<T> RandomArray(Random& random, int n) {
        std::vector<T> array(static_cast<std::size_t>(n));
        for (T& element : array) element = static_cast<T>(random(-1, 1));
        return array;
    }
};

using Elements = testing::Types<float, double>;
TYPED_TEST_SUITE(LinAlgTest, Elements);

TYPED_TEST(LinAlgTest, ElementwiseOperations) {
    using T = TypeParam;
    using Array = std::vector<T>;
    T const a[] = {1, -2, 3}, b[] = {4, 5, -6}, k = 2;
    for (auto const& [name, run, result] : Rows<char const*, std::function<void(T*)>, Array>{
             {"InitV", [&](T* d) { LinAlg::InitV(d, k, 3); }, {2, 2, 2}},
             {"CopyVector", [&](T* d) { LinAlg::CopyVector(d, a, 2); }, {1, -2, 30}},
             {"CopyMatrix", [&](T* d) { LinAlg::CopyMatrix(d, a, 1, 3); }, {1, -2, 3}},
             {"VAddV", [&](T* d) { LinAlg::VAddV(d, a, b, 3); }, {5, 3, -3}},
             {"VAddV in place", [&](T* d) { LinAlg::VAddV(d, a, 3); }, {11, 18, 33}},
             {"VSubV", [&](T* d) { LinAlg::VSubV(d, a, b, 3); }, {-3, -7, 9}},
             {"VSubV in place", [&](T* d) { LinAlg::VSubV(d, a, 3); }, {9, 22, 27}},
             {"VSubV of itself", [&](T* d) { LinAlg::VSubV(d, d, a, 3); }, {9, 22, 27}},
             {"VAddKxV", [&](T* d) { LinAlg::VAddKxV(d, k, a, 3); }, {12, 16, 36}},
             {"KVAddKV", [&](T* d) { LinAlg::KVAddKV(d, k, a, T{-1}, b, 3); }, {-2, -9, 12}},
             {"KxV", [&](T* d) { LinAlg::KxV(d, k, a, 3); }, {2, -4, 6}},
             {"KxV in place", [&](T* d) { LinAlg::KxV(d, k, 3); }, {20, 40, 60}},
             {"KxM", [&](T* d) { LinAlg::KxM(d, k, a, 3, 1); }, {2, -4, 6}},
             {"KxM in place", [&](T* d) { LinAlg::KxM(d, k, 1, 2); }, {20, 40, 30}},
             {"VxV", [&](T* d) { LinAlg::VxV(d, a, b, 3); }, {4, -10, -18}},
             {"VxV in place", [&](T* d) { LinAlg::VxV(d, a, 3); }, {10, -40, 90}},
             {"VdivV", [&](T* d) { LinAlg::VdivV(d, d, b, 3); }, {2.5, 4, -5}},
             {"MxV", [&](T* d) { LinAlg::MxV(d, a, b, 1, 3, 3); }, {-24, 20, 30}},
             {"MtxV", [&](T* d) { LinAlg::MtxV(d, a, b, 1, 3); }, {4, -8, 12}},
             {"TranspM", [&](T* d) { LinAlg::TranspM(d, a, 3, 1); }, {1, -2, 3}},
             {"count 0", [&](T* d) { LinAlg::VAddV(d, a, 0); }, {10, 20, 30}},
             {"count below 0", [&](T* d) { LinAlg::KxV(d, k, -3); }, {10, 20, 30}}}) {
        Array d = {10, 20, 30};
        run(d.data());
        EXPECT_EQ(d, result) << name;
    }
}

TYPED_TEST(LinAlgTest, SumsAreGatheredWider) {
    auto const half = static_cast<TypeParam>(this->Unit / 2);
    TypeParam const a[] = {1, half, half}, ones[] = {1, 1, 1}, v[] = {2, -3, 6};
    EXPECT_GT(LinAlg::SumV(a, 3), TypeParam{1});
    EXPECT_GT(LinAlg::DotProd(a, ones, 3), TypeParam{1});
    EXPECT_EQ(LinAlg::BetragV(v, 3), TypeParam{7});
    for (int const count : {0, -1})
        EXPECT_EQ(LinAlg::SumV(v, count) + LinAlg::DotProd(v, v, count) + LinAlg::BetragV(v, count),
                  TypeParam{0});
}

TYPED_TEST(LinAlgTest, MatrixProductsAgreeWithEachOther) {
    using Array = std::vector<TypeParam>;
    Array const a = {1, 2, 3, 4, 5, 6};  // 2 x 3
    Array transposed(6), square(4), d(2);
    LinAlg::TranspM(transposed.data(), a.data(), 2, 3);
    EXPECT_EQ(transposed, (Array{1, 4, 2, 5, 3, 6}));
    LinAlg::MxM(square.data(), a.data(), transposed.data(), 2, 3, 2);
    EXPECT_EQ(square, (Array{14, 32, 32, 77}));
    LinAlg::MxV(d.data(), a.data(), a.data(), 2, 2, 4);  // rows 4 apart: {1, 2} and {5, 6}
    EXPECT_EQ(d, (Array{5, 17}));

    Random random(3);
    Array const m = this->RandomArray(random, 36 * 4), v = this->RandomArray(random, 36);
    Array mt(36 * 4), normal(16), product(16), image(4), sameImage(4);
    LinAlg::TranspM(mt.data(), m.data(), 36, 4);
    LinAlg::MaTxMa(m.data(), 36, 4, normal.data());
    LinAlg::MxM(product.data(), mt.data(), m.data(), 4, 36, 4);
    EXPECT_EQ(normal, product);
    for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(normal[i], normal[i % 4 * 4 + i / 4]) << "not symmetric";
    LinAlg::MtxV(image.data(), m.data(), v.data(), 36, 4);
    LinAlg::MxV(sameImage.data(), mt.data(), v.data(), 4, 36, 36);
    EXPECT_EQ(image, sameImage);
}

TYPED_TEST(LinAlgTest, GaussElSolvesRandomSystems) {
    Random random(1777);
    for (int round = 0; round < 300; ++round) {
        int const n = 1 + round % 12;
        auto const a = this->RandomArray(random, n * n), b = this->RandomArray(random, n);
        auto workA = a, workB = b, x = b, image = b;
        unsigned char singular = 9;
        LinAlg::GaussEl(workB.data(), workA.data(), x.data(), n, singular);
        ASSERT_EQ(singular, 0);
        LinAlg::MxV(image.data(), a.data(), x.data(), n, n, n);
        // Partial pivoting is backward stable: the residual is a few n units of |a| |x|, whatever the
        // condition.
        double const bound = 8.0 * n * this->Unit * (1 + LinAlg::BetragV(x.data(), n));
        for (std::size_t i = 0; i < b.size(); ++i)
            ASSERT_NEAR(image[i], b[i], bound) << "seed 1777, " << round;
    }
}

TYPED_TEST(LinAlgTest, GaussElPivotsAndSingularMatrices) {
    using Array = std::vector<TypeParam>;
    auto const tiny = static_cast<TypeParam>(1e-30);
    for (auto const& [what, n, matrix, rhs, isSingular, solution] :
         Rows<char const*, int, Array, Array, int, Array>{
             {"zero first pivot", 2, {0, 1, 2, 0}, {3, 8}, 0, {4, 3}},
             {"rows exchanged twice", 3, {0, 0, 2, 3, 0, 0, 0, 4, 0}, {2, 3, 8}, 0, {1, 2, 1}},
             {"no unknowns", 0, {}, {}, 0, {7, 7}},
             {"equal rows", 2, {1, 2, 1, 2}, {1, 1}, 1, {7, 7}},
             {"a tiny pivot is used", 1, {tiny}, {tiny}, 0, {1, 7}}}) {
        Array a = matrix, b = rhs, x(solution.size(), 7);
        unsigned char singular = 9;
        LinAlg::GaussEl(b.data(), a.data(), x.data(), n, singular);
        EXPECT_EQ(singular, isSingular) << what;
        EXPECT_EQ(x, solution) << what;
    }
}

// A line through (0, 1), (1, 2), (2, 2), (3, 5): 4 c + 6 m = 10 and 6 c + 14 m = 21. Without the last point:
// through the first three, 1/2 and 7/6 x. With weight 2 on it, 4 in the squares: 7 c + 15 m = 25 and 15 c +
// 41 m = 66.
TYPED_TEST(LinAlgTest, LeastSquareFit) {
    using Array = std::vector<TypeParam>;
    Array const line = {1, 0, 1, 1, 1, 2, 1, 3}, targets = {1, 2, 2, 5};
    for (auto const& [what, weights, y0, a0, rows, isOk, offset, slope] :
         Rows<char const*, Array, Array, Array, int, int, double, double>{
             {"weights 1", {1, 1, 1, 1}, targets, line, 4, 1, 0.7, 1.2},
             {"weights 2 change nothing", {2, 2, 2, 2}, targets, line, 4, 1, 0.7, 1.2},
             {"a point without weight", {1, 1, 1, 0}, targets, line, 4, 1, 7.0 / 6, 0.5},
             {"a point that counts four times", {1, 1, 1, 2}, targets, line, 4, 1, 35.0 / 62, 87.0 / 62},
             {"all weights 0", {0, 0, 0, 0}, targets, line, 4, 0, 7, 7},
             {"as many as unknowns: no weights", {0, 0}, {1, 3}, {1, 0, 1, 2}, 2, 1, 1, 1},
             {"as many, singular", {1, 1}, {1, 3}, {1, 2, 1, 2}, 2, 0, 7, 7},
             {"too few", {1}, {1}, {1, 0}, 1, 0, 7, 7}}) {
        Array y = y0, a = a0, x(2, 7), normal(4), rhs(2);
        int index1[2], index2[2];
        unsigned char ok = 9;
        LinAlg::LeastSquareFit(weights.data(), y.data(), a.data(), x.data(), rows, 2, normal.data(),
                               rhs.data(), index1, index2, ok);
        EXPECT_EQ(ok, isOk) << what;
        EXPECT_NEAR(x[0], offset, 16 * this->Unit) << what;
        EXPECT_NEAR(x[1], slope, 16 * this->Unit) << what;
        // Left scaled, or left alone.
        TypeParam const scale = rows == 4 ? weights[3] : TypeParam{1};
        if (rows != 2) {
            EXPECT_EQ(a.back(), scale * a0.back()) << what;
            EXPECT_EQ(y.back(), scale * y0.back()) << what;
        }
    }
}

}  // namespace kv::test
