// arcs.h - arcs, circles and ellipses round the current point, which stays where it is.
//
// Radii and axes in cm, in either mode; their sign does not matter. One that is no number draws nothing.
#pragma once

namespace sondera {

/// Arc of radius r from angle a1 to a2, counterclockwise; degrees, cut to whole ones.
void ps_arc(float r, float a1, float a2);

void ps_circle(float r);

/// Filled circle. gray below 0: the current grey; else this grey, held to 1, which stays for what follows.
void ps_disk(float r, float gray);

/// Ellipse with the half axes a/2 along x and a*a/(2 b) along y. Kept: the second is not b/2, which only a
/// circle has. Drawn for a/b from 0.001 to 1000, so that the page has its scale back afterwards.
void ps_ellipse(float a, float b);

/// The same filled, its grey as in ps_disk().
void ps_ellip_disk(float a, float b, float gray);

}  // namespace sondera
