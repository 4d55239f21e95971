// LinAlg: operations on plain arrays, the numeric floor of the library. Vectors are a pointer and a count;
// matrices are dense and row-major, so that element (i, j) of a matrix of c columns stands at index i * c +
// j. Every operation exists for float and for double. Sums of products are accumulated in a wider type and
// rounded once, when they are stored. With a count below 1 an operation does nothing and a scalar result is
// 0. Arrays belong to the caller and must be as large as the counts say; destination and source of an
// element-wise operation may be the same. The functions keep no state and may run on any thread.
#pragma once

#include "KVUtils/Source/colorimetry/Rounded.h"

#include <cmath>
#include <utility>
#include <vector>

namespace kv {

namespace detail {

/// The operations for one element type. Results are computed in `Wide` and rounded once.
template <class T, class Wide>
class LinAlgKernel {
  public:
    /// v = value.
    static constexpr void InitV(T* v, T value, int n) noexcept {
        for (int i = 0; i < n; ++i) v[i] = value;
    }
    static constexpr void CopyVector(T* d, T const* a, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = a[i];
    }
    static constexpr void CopyMatrix(T* d, T const* a, int rows, int columns) noexcept {
        CopyVector(d, a, rows * columns);
    }

    /// d = a + b.
    static constexpr void VAddV(T* d, T const* a, T const* b, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{a[i]} + Wide{b[i]});
    }
    /// d = d + a.
    static constexpr void VAddV(T* d, T const* a, int n) noexcept { VAddV(d, d, a, n); }
    /// d = a - b.
    static constexpr void VSubV(T* d, T const* a, T const* b, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{a[i]} - Wide{b[i]});
    }
    /// d = d - a.
    static constexpr void VSubV(T* d, T const* a, int n) noexcept { VSubV(d, d, a, n); }
    /// d = d + k a.
    static constexpr void VAddKxV(T* d, T k, T const* a, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{d[i]} + Wide{k} * Wide{a[i]});
    }
    /// d = k1 a + k2 b.
    static constexpr void KVAddKV(T* d, T k1, T const* a, T k2, T const* b, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{k1} * Wide{a[i]} + Wide{k2} * Wide{b[i]});
    }
    /// d = k a.
    static constexpr void KxV(T* d, T k, T const* a, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{k} * Wide{a[i]});
    }
    /// d = k d.
    static constexpr void KxV(T* d, T k, int n) noexcept { KxV(d, k, d, n); }
    /// d = k a, over rows x columns elements.
    static constexpr void KxM(T* d, T k, T const* a, int rows, int columns) noexcept {
        KxV(d, k, a, rows * columns);
    }
    /// d = k d, over rows x columns elements.
    static constexpr void KxM(T* d, T k, int rows, int columns) noexcept { KxV(d, k, rows * columns); }
    /// d = a b, element by element.
    static constexpr void VxV(T* d, T const* a, T const* b, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{a[i]} * Wide{b[i]});
    }
    /// d = d a, element by element.
    static constexpr void VxV(T* d, T const* a, int n) noexcept { VxV(d, d, a, n); }
    /// d = a / b, element by element. A zero in b gives infinity or NaN.
    static constexpr void VdivV(T* d, T const* a, T const* b, int n) noexcept {
        for (int i = 0; i < n; ++i) d[i] = Round(Wide{a[i]} / Wide{b[i]});
    }

    /// The sum of the elements.
    [[nodiscard]] static constexpr T SumV(T const* a, int n) noexcept {
        Wide sum = 0;
        for (int i = 0; i < n; ++i) sum += Wide{a[i]};
        return Round(sum);
    }
    /// The Euclidean norm.
    [[nodiscard]] static T BetragV(T const* a, int n) noexcept { return Round(std::sqrt(Products(a, a, n))); }
    [[nodiscard]] static constexpr T DotProd(T const* a, T const* b, int n) noexcept {
        return Round(Products(a, b, n));
    }

    /// d[i] = sum over j of m[i * stride + j] v[j]: matrix times vector, rows `stride` elements apart.
    static constexpr void MxV(T* d, T const* m, T const* v, int rows, int columns, int stride) noexcept {
        for (int i = 0; i < rows; ++i) d[i] = DotProd(m + i * stride, v, columns);
    }
    /// d[j] = sum over i of m[i * columns + j] v[i]: transposed matrix times a vector of `rows` elements.
    static constexpr void MtxV(T* d, T const* m, T const* v, int rows, int columns) noexcept {
        for (int j = 0; j < columns; ++j) d[j] = StridedDotProd(m + j, columns, v, 1, rows);
    }
    /// d = a b.
    static constexpr void MxM(T* d, T const* a, T const* b, int rowsOfA, int columnsOfA,
                              int columnsOfB) noexcept {
        for (int i = 0; i < rowsOfA; ++i) {
            for (int j = 0; j < columnsOfB; ++j) {
                d[i * columnsOfB + j] = StridedDotProd(a + i * columnsOfA, 1, b + j, columnsOfB, columnsOfA);
            }
        }
    }
    /// d = transpose of a, which has rows x columns elements.
    static constexpr void TranspM(T* d, T const* a, int rows, int columns) noexcept {
        for (int i = 0; i < rows; ++i) {
            for (int j = 0; j < columns; ++j) d[j * rows + i] = a[i * columns + j];
        }
    }
    /// d = transpose of a times a, columns x columns and exactly symmetric.
    static constexpr void MaTxMa(T const* a, int rows, int columns, T* d) noexcept {
        for (int i = 0; i < columns; ++i) {
            for (int j = i; j < columns; ++j) {
                d[i * columns + j] = StridedDotProd(a + i, columns, a + j, columns, rows);
                d[j * columns + i] = d[i * columns + j];
            }
        }
    }

    /// Solves a x = b for n unknowns by elimination with partial pivoting; `a` and `b` are overwritten.
    /// `rows` and `order` are work space of n elements: rows are exchanged through indices, not moved. Sets
    /// `singular` to 1 and leaves x unchanged when a pivot is exactly 0. There is no tolerance: a nearly
    /// singular matrix gives a solution of large numbers.
    static constexpr void GaussEl(T* b, T* a, T* x, int n, unsigned char& singular, int* rows,
                                  int* order) noexcept {
        singular = 0;
        for (int i = 0; i < n; ++i) {
            rows[i] = i * n;
            order[i] = i;
        }
        for (int k = 0; k < n; ++k) {
            int const pivot = PivotRow(a, k, n, rows);
            if (a[rows[pivot] + k] == T{0}) {
                singular = 1;
                return;
            }
            std::swap(rows[k], rows[pivot]);
            std::swap(order[k], order[pivot]);
            EliminateBelow(b, a, k, n, rows, order);
        }
        for (int i = n - 1; i >= 0; --i) {
            Wide rest = Wide{b[order[i]]};
            for (int c = i + 1; c < n; ++c) rest -= Wide{x[c]} * Wide{a[rows[i] + c]};
            x[i] = Round(rest / Wide{a[rows[i] + i]});
        }
    }
    /// The same; allocates the work space.
    static void GaussEl(T* b, T* a, T* x, int n, unsigned char& singular) {
        std::vector<int> rows(n > 0 ? static_cast<std::size_t>(n) : 0);
        std::vector<int> order(rows.size());
        GaussEl(b, a, x, n, singular, rows.data(), order.data());
    }

    /// Weighted least squares: minimises the sum of (w[i] times residual i) squared of a x = y, with `rows`
    /// equations in `columns` unknowns. Overwrites `a` and `y`. `normal` (columns x columns), `rhs`, `index1`
    /// and `index2` (columns) are work space. A square system is solved directly, without the weights. Sets
    /// `ok` to 0 for fewer equations than unknowns and for a singular system, else to 1.
    static constexpr void LeastSquareFit(T const* w, T* y, T* a, T* x, int rows, int columns, T* normal,
                                         T* rhs, int* index1, int* index2, unsigned char& ok) noexcept {
        ok = 1;
        if (rows < columns) {
            ok = 0;
            return;
        }
        unsigned char singular = 0;
        if (rows == columns) {
            GaussEl(y, a, x, columns, singular, index1, index2);
        } else {
            for (int i = 0; i < rows; ++i) KxV(a + i * columns, w[i], columns);
            MaTxMa(a, rows, columns, normal);
            VxV(y, w, rows);
            MtxV(rhs, a, y, rows, columns);
            GaussEl(rhs, normal, x, columns, singular, index1, index2);
        }
        if (singular != 0) ok = 0;
    }

  private:
    [[nodiscard]] static constexpr T Round(Wide value) noexcept { return static_cast<T>(value); }

    [[nodiscard]] static constexpr Wide Products(T const* a, T const* b, int n) noexcept {
        Wide sum = 0;
        for (int i = 0; i < n; ++i) sum += Wide{a[i]} * Wide{b[i]};
        return sum;
    }
    [[nodiscard]] static constexpr T StridedDotProd(T const* a, int strideOfA, T const* b, int strideOfB,
                                                    int n) noexcept {
        Wide sum = 0;
        for (int i = 0; i < n; ++i) sum += Wide{a[i * strideOfA]} * Wide{b[i * strideOfB]};
        return Round(sum);
    }

    /// The row from k on whose element in column k is largest; the first of equals.
    [[nodiscard]] static constexpr int PivotRow(T const* a, int k, int n, int const* rows) noexcept {
        auto const magnitude = [&](int row) {
            T const element = a[rows[row] + k];
            return element < T{0} ? -element : element;
        };
        int pivot = k;
        for (int j = k + 1; j < n; ++j) {
            if (magnitude(j) > magnitude(pivot)) pivot = j;
        }
        return pivot;
    }

    static constexpr void EliminateBelow(T* b, T* a, int k, int n, int const* rows,
                                         int const* order) noexcept {
        for (int i = k + 1; i < n; ++i) {
            Wide const f = -Wide{a[rows[i] + k]} / Wide{a[rows[k] + k]};
            for (int c = k + 1; c < n; ++c) {
                a[rows[i] + c] = Round(Wide{a[rows[i] + c]} + Rounded<Wide>(f * Wide{a[rows[k] + c]}));
            }
            b[order[i]] = Round(Wide{b[order[i]]} + Rounded<Wide>(f * Wide{b[order[k]]}));
        }
    }
};

}  // namespace detail

class LinAlg : detail::LinAlgKernel<float, double>, detail::LinAlgKernel<double, long double> {
    using Single = detail::LinAlgKernel<float, double>;
    using Double = detail::LinAlgKernel<double, long double>;

  public:
    LinAlg() = delete;

    using Double::BetragV, Single::BetragV;
    using Double::CopyMatrix, Single::CopyMatrix;
    using Double::CopyVector, Single::CopyVector;
    using Double::DotProd, Single::DotProd;
    using Double::GaussEl, Single::GaussEl;
    using Double::InitV, Single::InitV;
    using Double::KVAddKV, Single::KVAddKV;
    using Double::KxM, Single::KxM;
    using Double::KxV, Single::KxV;
    using Double::LeastSquareFit, Single::LeastSquareFit;
    using Double::MaTxMa, Single::MaTxMa;
    using Double::MtxV, Single::MtxV;
    using Double::MxM, Single::MxM;
    using Double::MxV, Single::MxV;
    using Double::SumV, Single::SumV;
    using Double::TranspM, Single::TranspM;
    using Double::VAddKxV, Single::VAddKxV;
    using Double::VAddV, Single::VAddV;
    using Double::VdivV, Single::VdivV;
    using Double::VSubV, Single::VSubV;
    using Double::VxV, Single::VxV;
};

}  // namespace kv
