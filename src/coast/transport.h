#pragma once

#include "model/model.h"

namespace kelprun {

/// Constants of one call of the sediment step.
struct TransportConstants {
  float DTSEC;   ///< step length, s
  float DLIM;    ///< limit depth of longshore motion over wave height, 1.27/GAMMA
  float SQ;      ///< sqrt((1.416/GAMMA)/G)
  float HALFPI;  ///< PI/2
};
TransportConstants transport_constants(float DT, float GAMMA);

/// Fills RDEN and CB and clears Q, QBWTIP and the sums of the step.
void clear_transport(const TransportConstants& constants, const Settings& settings,
                     const Grid& grid, const Profile& profile, const Waves& waves,
                     Transport& transport);

/// Longshore transport Q of every wall, m3/s, positive to the right: the wave term of the CERC
/// formula, the gradient term of Ozasa and Brampton (1980, "Mathematical modelling of beaches
/// backed by seawalls", Coastal Engineering 4) and the tidal current term, with the factor of a
/// groin, the part taken off at a breakwater tip and the guard against waves beyond the normal.
void compute_transport(const TransportConstants& constants, const Settings& settings,
                       const Grid& grid, const Profile& profile, const Waves& waves,
                       const Shore& shore, const Groins& groins, const Breakwaters& breakwaters,
                       Transport& transport);

/// Share of the surf zone that lies landward of a line at distance DIST from the shoreline, 0 to
/// 1, from the limit depth DT1 of longshore motion, m.
float share_landward(float DIST, float DT1, float ASHAPE);

}  // namespace kelprun
