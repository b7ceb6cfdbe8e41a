// perspective.h - boxes and bars in space, seen from a point, drawn in cm from the origin of the page.
//
// Data ranges become a box of given sizes: X = lx (x - xmin)/(xmax - xmin), and so on. y points upwards. The
// eye is at the distance D from the box's zero corner, rotated by a about y and b down from y. Points at or
// behind the eye (W <= 0), or not finite, are not drawn.
#pragma once

namespace sondera {

/// Box sizes (cm), data ranges, angles (radians; whole turns are removed), viewing distance D (cm) and scale
/// E (cm on paper of a size of D at the distance D).
void ps_3Dsetup(float lx, float ly, float lz, float xmin, float xmax, float ymin, float ymax, float zmin,
                float zmax, float a, float b, float D, float E);

/// Projects a data point, with the scaled coordinates X, Y, Z:
///   W = D - cos b Y - cos a sin b Z - sin a sin b X
///   u = E (cos a X - sin a Z)/W
///   v = E (sin b Y - cos b cos a Z - sin a cos b X)/W
/// u, v in cm. 1; 0 with u = v = 0 where W is not above 0 or a value is not finite.
int ps_3Dcalcul(float x, float y, float z, float* u, float* v);

/// Lines from the low corner of all ranges along x, y and z.
void ps_3Daxes();

/// The edges of the box's far faces: the background of the data.
void ps_3Dframe();
/// The remaining edges, where two near faces meet: draw them after the data.
void ps_3Dclosebox();

/// Near faces of a bar from the lowest y up to y, over x1..x2 and z1..z2, in data units. Faces across y have
/// this grey, those across x 0.8 and those across z 0.6 of it; edges have the current ink.
void ps_3Dbar(float x1, float x2, float y, float z1, float z2, float gray);
/// The same for any cuboid.
void ps_3Dbox(float x1, float x2, float y1, float y2, float z1, float z2, float gray);

}  // namespace sondera
