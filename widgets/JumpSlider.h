#pragma once

#include <QSlider>

/// A horizontal slider whose handle jumps to a left click in the groove, from where it can be
/// dragged on. A press on the handle itself moves nothing.
class JumpSlider : public QSlider
{
    Q_OBJECT

public:
    explicit JumpSlider(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
