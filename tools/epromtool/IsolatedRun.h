// Runs a piece of work in a child process, so that a process exit inside it harms nothing here.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace epromtool {

class IsolatedRun {
public:
    struct Outcome {
        bool completed = false; // the work returned and its result arrived whole
        int exitStatus = 0;     // the child's exit status when it ended the process itself
        int signal = 0;         // the signal that killed the child, 0 if none
        QByteArray result;      // what the work returned
        QString error;          // why it did not complete, in words
    };

    // The child shares nothing with this process but the standard streams; whatever the
    // work returns is handed back through a pipe.
    static Outcome run(const std::function<QByteArray()>& work);
};

} // namespace epromtool
