#pragma once

namespace tour {

class Tour;

// The walk, in its order; each of these stands in a file of its own.
void firstStart(Tour &tour);
void processSetting(Tour &tour);
void processConfiguration(Tour &tour);
void handleKeys(Tour &tour);
void programEditor(Tour &tour);
void weld(Tour &tour);
void restart(Tour &tour);
void linkDown(Tour &tour);
void hostPages(Tour &tour);
void darkTheme(Tour &tour);
void chinese(Tour &tour);

} // namespace tour
