#pragma once

#include <QString>
#include <QTemporaryDir>

namespace quorvel::sim {

// A folder that stands for the user's home, so that nothing of the stories gets into the real one.
// To be made before the application object; gone with it.
class Home {
 public:
  Home();
  // Where printed documents go that have no other place.
  void EmptyDocuments() const;

 private:
  QTemporaryDir folder_;
};

}  // namespace quorvel::sim
