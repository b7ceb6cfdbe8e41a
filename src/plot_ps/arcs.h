// arcs.h - arcs, circles and ellipses around the current point, which does not change.
//
// Radii and axes in cm, in either mode; their sign does not matter. With NaN or infinity nothing is drawn.
#pragma once

namespace sondera {

/// Arc of radius r from angle a1 to a2, counterclockwise; degrees, truncated to integers.
void ps_arc(float r, float a1, float a2);

void ps_circle(float r);

/// Filled circle. gray below 0: the current grey; else this grey, at most 1, which also becomes the current
/// one.
void ps_disk(float r, float gray);

/// Ellipse with the half axes a/2 along x and a*a/(2 b) along y. Kept: the second is not b/2, which is right
/// for a circle only. Drawn for a/b from 0.001 to 1000, so that the page gets its scale back afterwards.
void ps_ellipse(float a, float b);

/// The same filled, its grey as in ps_disk().
void ps_ellip_disk(float a, float b, float gray);

}  // namespace sondera
