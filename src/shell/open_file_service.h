#pragma once
// The Open-file dialog. A cancelled dialog yields nothing, so the caller keeps its path.
#include <optional>
#include <utility>

#include <QString>

class QWidget;

namespace trelvin {

class OpenFileService {
public:
    virtual ~OpenFileService() = default;
    virtual std::optional<QString> chooseFile(const QString& previousPath) = 0;
};

// Modal dialog with no filter and no title of its own.
class FileDialogService : public OpenFileService {
public:
    explicit FileDialogService(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }
    std::optional<QString> chooseFile(const QString& previousPath) override;

private:
    QWidget* parent_;
};

// Answers the first request with a path given in advance (the command line), later ones
// through another service.
class PresetFirstChoice : public OpenFileService {
public:
    PresetFirstChoice(QString path, OpenFileService& later)
        : preset_(std::move(path)), later_(later) {}
    std::optional<QString> chooseFile(const QString& previousPath) override;

private:
    std::optional<QString> preset_;
    OpenFileService& later_;
};

}  // namespace trelvin
