#pragma once

#include <QApplication>

namespace shell {

// An application that survives an event for which there was no memory: what that event was to do is given up,
// and the user is told.
class Application : public QApplication {
  public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace shell
