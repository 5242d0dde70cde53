#pragma once
// Modal message boxes with only an OK button, titled with the application's title.
// The window gets one injected, so tests record the texts instead of showing boxes.
#include <QString>

class QWidget;

namespace trelvin {

inline constexpr const char* kApplicationTitle = "Trelvin - Replay v1.1";

class MessageService {
public:
    virtual ~MessageService() = default;
    // Returns when the box is closed.
    virtual void showMessage(const QString& text) = 0;
};

class MessageBoxService : public MessageService {
public:
    explicit MessageBoxService(QWidget* parent = nullptr) : parent_(parent) {}
    // The window the boxes are centred on, once it exists.
    void setParent(QWidget* parent) { parent_ = parent; }
    void showMessage(const QString& text) override;

private:
    QWidget* parent_;
};

}  // namespace trelvin
