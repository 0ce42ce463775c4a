#pragma once

// Programs of this machine, each in a process group of its own.

#include "platform/Commands.h"

#include <QProcess>
#include <QTimer>

#include <memory>

namespace halyard {

class QtCommands : public Commands {
  public:
    QtCommands();
    ~QtCommands() override;

    bool Run(const CommandLine& command, Done done) override;

  private:
    /// Started processes only. What is still in the group then, too.
    void KillGroup();
    void End(const CommandEnd& end);

    std::unique_ptr<QProcess> process; ///< null while none runs
    QTimer limit;
    qint64 group = 0;
    bool tooLong = false;
    Done done;
};

} // namespace halyard
