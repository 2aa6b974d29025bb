// A steel frame with a coil window, converted into code by the wizard.
// Lengths in millimetres; every curve is a straight line or a circular arc.

// Frame: a rectangle closed by an arc of more than a quarter turn.
Point(1) = {0, 0, 0};
Point(2) = {40, 0, 0};
Point(3) = {40, 20, 0};
Point(4) = {20, 20, 0};   // centre of the frame arc
Point(5) = {4, 32, 0};
Point(6) = {0, 20, 0};
Line(1) = {1, 2};
Line(2) = {2, 3};
Circle(3) = {3, 4, 5};
Line(4) = {5, 6};
Line(5) = {6, 1};

// Coil window: a rectangle with one corner rounded by an arc of less than a quarter turn,
// run clockwise so that the coil lies on the right of its first edge.
Point(7) = {10, 5, 0};
Point(8) = {30, 5, 0};
Point(9) = {30, 9, 0};
Point(10) = {25, 9, 0};   // centre of the corner arc
Point(11) = {28, 13, 0};
Point(12) = {10, 13, 0};
Line(6) = {7, 12};
Line(7) = {12, 11};
Circle(8) = {11, 10, 9};
Line(9) = {9, 8};
Line(10) = {8, 7};

Curve Loop(1) = {1, 2, 3, 4, 5};
Curve Loop(2) = {6, 7, 8, 9, 10};
Plane Surface(1) = {1, 2};
Plane Surface(2) = {2};

// Points on no curve.
Point(13) = {35.5, 2.125, 0};
Point(14) = {0.5, 33.333333, 0};

Physical Point("Origin") = {1};
Physical Point("Probe") = {13};
Physical Curve("Ground") = {1};
Physical Curve("Shell") = {3};
Physical Surface("Steel") = {1};
Physical Surface("Coil") = {2};
