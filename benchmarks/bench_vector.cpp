// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Vectors beside the same arithmetic on plain doubles.
#include "benchmarks/MicroBenchmark.h"
#include "shared/view3d/Vector3D.h"

#include <algorithm>
#include <cmath>
#include <vector>

using Vector = Tavro::View3d::Vector3D<double>;

namespace {

// many of them, or it is the clock that is measured
constexpr int s_count = 1000;

struct Plain
{
    double x;
    double y;
    double z;
};

template<typename Triple> std::vector<Triple> course(double offset)
{
    std::vector<Triple> triples;
    triples.reserve(s_count);
    for (int i = 0; i < s_count; ++i) {
        triples.push_back(Triple{i * 0.25 + offset, i * 0.5 - offset, 100.0 - i});
    }
    return triples;
}

// what a view does with a pipe's course: move it, scale it, lay it out from the middle
Vector moved(const std::vector<Vector> &a, const std::vector<Vector> &b)
{
    Vector sum;
    for (size_t i = 0; i < a.size(); ++i) {
        sum = sum + (a[i] - b[i]) * 0.75 + a[i] / 3.0;
    }
    return sum;
}

Plain moved(const std::vector<Plain> &a, const std::vector<Plain> &b)
{
    Plain sum{0, 0, 0};
    for (size_t i = 0; i < a.size(); ++i) {
        sum.x = sum.x + (a[i].x - b[i].x) * 0.75 + a[i].x / 3.0;
        sum.y = sum.y + (a[i].y - b[i].y) * 0.75 + a[i].y / 3.0;
        sum.z = sum.z + (a[i].z - b[i].z) * 0.75 + a[i].z / 3.0;
    }
    return sum;
}

double lengths(const std::vector<Vector> &a)
{
    double sum = 0;
    for (const Vector &v : a) {
        sum += v.length();
    }
    return sum;
}

double lengths(const std::vector<Plain> &a)
{
    double sum = 0;
    for (const Plain &v : a) {
        sum += std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    }
    return sum;
}

double products(const std::vector<Vector> &a, const std::vector<Vector> &b)
{
    double sum = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        sum += Vector::dotProduct(a[i], b[i]);
    }
    return sum;
}

double products(const std::vector<Plain> &a, const std::vector<Plain> &b)
{
    double sum = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        sum += a[i].x * b[i].x + a[i].y * b[i].y + a[i].z * b[i].z;
    }
    return sum;
}

bool isNear(double a, double b)
{
    return std::abs(a - b) * 1e12 <= std::min(std::abs(a), std::abs(b));
}

int equals(const std::vector<Vector> &a, const std::vector<Vector> &b)
{
    int count = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        count += a[i] == b[i] ? 1 : 0;
    }
    return count;
}

int equals(const std::vector<Plain> &a, const std::vector<Plain> &b)
{
    int count = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        const bool equal =
            isNear(a[i].x, b[i].x) && isNear(a[i].y, b[i].y) && isNear(a[i].z, b[i].z);
        count += equal ? 1 : 0;
    }
    return count;
}

} // namespace

int main(int argc, char **argv)
{
    using Tavro::Benchmarks::MicroBenchmark;

    const auto vectors = course<Vector>(1.0);
    const auto otherVectors = course<Vector>(7.0);
    const auto plains = course<Plain>(1.0);
    const auto otherPlains = course<Plain>(7.0);
    const std::string peer = "plain doubles";
    // 1.0, and by what two runs of the same instructions differ
    constexpr double same = 1.05;

    MicroBenchmark page("Vectors, 1000 at a time");
    page.compare(
        "sum, difference, product, quotient", [&] { return moved(vectors, otherVectors); }, peer,
        [&] { return moved(plains, otherPlains); }, same);
    page.compare(
        "length", [&] { return lengths(vectors); }, peer, [&] { return lengths(plains); }, same);
    page.compare(
        "scalar product", [&] { return products(vectors, otherVectors); }, peer,
        [&] { return products(plains, otherPlains); }, same);
    page.compare(
        "equality of equals", [&] { return equals(vectors, vectors); }, peer,
        [&] { return equals(plains, plains); }, same);
    return page.run(argc, argv);
}
