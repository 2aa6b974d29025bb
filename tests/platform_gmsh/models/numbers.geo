// Coordinates whose single-precision text takes every form: a dropped leading zero,
// a minus sign, rounding to seven digits, and the exponent form both ways.
Point(1) = {.25, -.25, 0};
Point(2) = {1234567.8, .00001, 0};
Point(3) = {-.5, 12345678, 0};
Point(4) = {-.00001, 1.5, 0};
Point(5) = {-1234.5, .0001, 0};
Line(1) = {1, 2};
Line(2) = {2, 3};
Physical Point("Origin side") = {1};
Physical Point("Far") = {5};
Physical Curve("Long") = {2};
