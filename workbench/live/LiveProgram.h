// The camera program: brings bus object, window, scene and picture file together.
#pragma once

#include <QImage>
#include <QString>
#include <cstdint>
#include <string>

#include "workbench/live/CameraWindow.h"
#include "workbench/live/ControlSocket.h"
#include "workbench/live/LiveObject.h"
#include "workbench/live/SceneFeed.h"

namespace workbench::live {

class LiveProgram {
public:
    // The folder into which it saves its picture: TRAVO's program folder.
    explicit LiveProgram(const QString& folder);

    // Comes up on the bus; false where it cannot.
    bool Start();
    // As the close button of its window: tells it, gives up the name and ends.
    void CloseByOperator();

private:
    void FollowState();
    void FollowScene();
    bool Save();
    QString Line() const;
    QImage Picture() const;
    std::string Answer(const std::string& line);
    std::string Work(const QStringList& words);
    std::string StateText() const;
    std::string CountersText() const;
    void Hang(double seconds);

    QString folder_;
    LiveObject object_;
    SceneFeed feed_;
    CameraWindow window_;
    ControlSocket socket_;
    QImage picture_;
    std::int64_t saved_ = 0;
};

}  // namespace workbench::live
