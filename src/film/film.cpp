#include "film/film.h"

#include "text/number.h"

namespace animate {

void SetPlanned(Film& film, Size planned) {
  film.planned = planned;
  film.size = film.format->needsEvenSides
                  ? Size{RaisedToEven(planned.width), RaisedToEven(planned.height)}
                  : planned;
}

}  // namespace animate
