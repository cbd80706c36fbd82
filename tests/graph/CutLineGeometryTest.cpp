#include "graph/CutLineGeometry.h"
#include "graph/Connection.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using Tesselor::Connection;
using Tesselor::CutLineMeetsCurve;
using Tesselor::IsNearCurve;
using Tesselor::SegmentsMeet;
using Toolkit::Point;
using Curve = std::array<Point, 4>;

TEST(CutLineGeometry, SegmentsMeetWhereTheyCrossOrTouch) {
  struct Case {
    Point a, b, p, q;
    bool meet;
  };
  for (const Case& c : {Case{{0, 0}, {10, 10}, {0, 10}, {10, 0}, true},
                        {{0, 0}, {10, 10}, {20, 0}, {12, 8}, false},
                        {{0, 0}, {10, 0}, {0, 5}, {10, 5}, false},
                        // An end point on the other segment.
                        {{0, 0}, {10, 0}, {5, 0}, {5, 9}, true},
                        {{5, -4}, {5, 0}, {0, 0}, {10, 0}, true},
                        {{0, 0}, {10, 0}, {10, 0}, {20, 5}, true},
                        // On one line, apart and overlapping.
                        {{0, 0}, {10, 0}, {11, 0}, {20, 0}, false},
                        {{0, 0}, {10, 0}, {6, 0}, {20, 0}, true},
                        // A segment that is a point.
                        {{0, 0}, {10, 0}, {5, 0}, {5, 0}, true},
                        {{0, 0}, {10, 0}, {5, 1}, {5, 1}, false}}) {
    EXPECT_EQ(SegmentsMeet(c.a, c.b, c.p, c.q), c.meet) << c.p.x << "," << c.p.y;
    EXPECT_EQ(SegmentsMeet(c.p, c.q, c.b, c.a), c.meet) << c.p.x << "," << c.p.y;
  }
}

TEST(CutLineGeometry, FollowsTheCurveAndNotItsControlPoints) {
  // The curve swings out to the left of the input and to the right of the output.
  const Curve curve = Connection::CurveBetween({750000, 750000}, {750000, 750400});
  EXPECT_TRUE(CutLineMeetsCurve({749900, 750200}, {750100, 750200}, curve));
  EXPECT_TRUE(CutLineMeetsCurve({749950, 750050}, {749990, 750050}, curve));
  EXPECT_FALSE(CutLineMeetsCurve({749900, 750000}, {749905, 750100}, curve));
  EXPECT_FALSE(CutLineMeetsCurve({750010, 750100}, {750040, 750090}, curve));
}

TEST(CutLineGeometry, TellsWhatIsNearACurveFromEndToEnd) {
  const Curve curve = Connection::CurveBetween({500, 100}, {100, 300});
  // The middle of the curve is the middle between its ends.
  for (const Point on : {curve[0], Point{300, 200}, curve[3]}) {
    for (const Point away : {Point{0, 0}, {0, 2}, {0, -2}, {2, 0}, {-2, 0}})
      EXPECT_TRUE(IsNearCurve(on + away, curve, 3)) << on.x + away.x << "," << on.y + away.y;
    for (const Point away : {Point{0, 9}, {0, -9}, {30, 0}, {-30, 0}})
      EXPECT_FALSE(IsNearCurve(on + away, curve, 3)) << on.x + away.x << "," << on.y + away.y;
  }
}

TEST(CutLineGeometry, PassesOverNoCurveThatTheLineMeets) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> place(749000, 751000);
  int met = 0;
  for (int i = 0; i < 3000; ++i) {
    const Curve curve = Connection::CurveBetween({place(random), place(random)}, {place(random), place(random)});
    // A line across a point that lies on the curve.
    const double t = 0.05 * (1 + i % 19), u = 1 - t;
    const auto at = [&](float Point::*axis) {
      return static_cast<float>(u * u * u * curve[0].*axis + 3 * u * u * t * curve[1].*axis +
                                3 * u * t * t * curve[2].*axis + t * t * t * curve[3].*axis);
    };
    const Point middle{at(&Point::x), at(&Point::y)};
    const bool vertical = std::abs(curve[3].x - curve[0].x) > std::abs(curve[3].y - curve[0].y);
    const Point reach = vertical ? Point{0, 40} : Point{40, 0};
    met += CutLineMeetsCurve(middle - reach, middle + reach, curve);
  }
  EXPECT_EQ(met, 3000);
}

} // namespace
