#pragma once

#include "model/boundaries.h"
#include "model/clock.h"
#include "model/diffraction.h"
#include "model/events.h"
#include "model/grid.h"
#include "model/inlets.h"
#include "model/series.h"
#include "model/settings.h"
#include "model/shore.h"
#include "model/structures.h"
#include "model/transport.h"
#include "model/waves.h"

namespace kelprun {

/// Everything that the model knows, one plain record a subject. Each record has one owner, named
/// at its declaration; only src/run/ passes the whole of it around.
struct Model {
  Settings settings;
  Clock clock;
  Grid grid;
  Profile profile;
  Series series;
  Boundaries boundaries;
  Groins groins;
  Breakwaters breakwaters;
  Seawalls seawalls;
  Tips tips;
  Zones zones;
  Events events;
  Inlets inlets;
  Budget budget;
  Waves waves;
  Diffraction diffraction;
  UndiffractedSums undiffracted;
  Shore shore;
  Transport transport;
  Ledgers ledgers;
};

}  // namespace kelprun
