#include "film/film.h"

#include "text/number.h"

namespace animate {

bool KeepsDepth(const Film& film) {
  return film.isDeep && film.format->isDeep && film.freePixels == Film::FreePixels::kNone;
}

void SetPlanned(Film& film, Size planned) {
  film.planned = planned;
  film.size = film.format->needsEvenSides
                  ? Size{RaisedToEven(planned.width), RaisedToEven(planned.height)}
                  : planned;
}

}  // namespace animate
