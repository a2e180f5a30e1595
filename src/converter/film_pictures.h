// The planned pictures of a film, gone through once or twice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "converter/converter.h"
#include "converter/raw_pictures.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// They are kept where there is memory for them; of larger films the converter makes the second time
// what it made the first.
class FilmPictures {
 public:
  using Take = std::function<void(const RawPicture&)>;

  // All three outlive it.
  FilmPictures(const Converter& converter, const Film& film, const Staging& staging);

  // Calls `take` with each picture, one after the other, maybe on another thread. After it the
  // staging folder has the small pictures of what is planned. Throws what `take` throws, and a
  // Failure when the converter fails or the user wishes to stop.
  void First(const Take& take);

  // Whether they are so small that there is memory for another converter from the beginning on.
  bool AreSmall() const;

  // Whether the converter has nothing to do the second time.
  bool AreKept() const;

  // Starts the converter for the second time, where it is needed, while the first one is still at
  // work: it has a picture at once then. For when there has to be a second time.
  void PrepareSecond();

  // The same for the second time, if there has to be one.
  void Second(const Take& take);

 private:
  void ReadAgain(const std::function<void(RawPicture&)>& take) const;
  void Read(const std::string& graph, const Words& more,
            const std::function<void(RawPicture&)>& take) const;

  const Converter& converter_;
  const Film& film_;
  const Staging& staging_;
  // Of all of them.
  std::size_t bytes_;
  std::vector<std::vector<std::uint8_t>> kept_;
  // Its end waits for the first picture to be taken: the promise ends before it.
  std::future<void> second_;
  std::promise<Take> take_;
};

}  // namespace animate
