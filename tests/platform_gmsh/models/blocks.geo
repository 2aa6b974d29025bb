// A square block with a round hole, filled by a block of its own, and three blocks
// around it. Every block's first boundary curve is chosen for one labelling case:
// the block on the curve's left, on its right beside another block, on its right
// with nothing on its left. Points 5 and 10 are arc centres only.
Point(1) = {-.25, -.25, 0};
Point(2) = {20, -.25, 0};
Point(3) = {20, 20, 0};
Point(4) = {-.25, 20, 0};
Point(5) = {10, 10, 0};
Point(6) = {15, 10, 0};
Point(7) = {14, 13, 0};
Point(8) = {6, 13, 0};
Point(9) = {13, 6, 0};
Point(10) = {9.875, 20, 0};
Point(11) = {30, -.25, 0};
Point(12) = {30, 20, 0};
Point(13) = {40, 10, 0};
Point(14) = {-7, 3.5, 0};
Point(15) = {25, 35, 0};

Line(1) = {1, 2};
Line(2) = {2, 3};
Line(3) = {3, 4};
Line(4) = {4, 1};
// The hole: arcs of 36.87, 106.26, 163.74 and 53.13 degrees.
Circle(5) = {6, 5, 7};
Circle(6) = {7, 5, 8};
Circle(7) = {8, 5, 9};
Circle(8) = {9, 5, 6};
Line(9) = {11, 2};
Line(10) = {11, 12};
Line(11) = {12, 3};
// A semicircle over line 3.
Circle(12) = {3, 10, 4};
Line(13) = {11, 13};
Line(14) = {13, 12};

Curve Loop(1) = {1, 2, 3, 4};
Curve Loop(2) = {5, 6, 7, 8};
Plane Surface(1) = {1, 2};
Curve Loop(3) = {-8, -7, -6, -5};
Plane Surface(2) = {3};
Curve Loop(4) = {-9, 10, 11, -2};
Plane Surface(3) = {4};
Curve Loop(5) = {-3, 12};
Plane Surface(4) = {5};
Curve Loop(6) = {13, 14, -10};
Plane Surface(5) = {6};

Physical Surface("Iron") = {1};
Physical Surface("Coil") = {2};
Physical Surface("Air") = {3};
Physical Surface("Copper") = {4};
Physical Curve("Ground") = {1, 9};
Physical Curve("Bore") = {7};
Physical Point("Corner") = {1};
Physical Point("Top") = {12};
Physical Point("Probe") = {14};
