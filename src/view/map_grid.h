#pragma once
// The map: one painted widget holding the field pictures m(1..) and the grid labels l(1..)
// as plain per-element state, so that maps of ten thousand fields open and redraw at once.
// Positions are twips of the window's client area; the widget covers their bounding box.
#include <functional>
#include <utility>
#include <vector>

#include <QPixmap>
#include <QRectF>
#include <QString>
#include <QWidget>

namespace trelvin {

class MapGrid : public QWidget {
    Q_OBJECT

public:
    // The templates m(0) and l(0): a field is 300 x 300 twips, 20 x 20 pixels.
    static constexpr int kFieldTemplateSize = 300;

    explicit MapGrid(QWidget* parent = nullptr);

    // Unloads m(1) .. and l(1) ..; the templates stay.
    void unloadAll();

    // Builds the fields row by row, then the column characters, then the row numbers, with the
    // window's outer width `windowWidth` in twips. Positions are 16-bit values: a map of 101
    // rows or 110 columns throws an overflow, keeping the elements loaded until then.
    void build(int rows, int columns, double windowWidth);

    // Highest index of m, and field k (1-based) of it.
    int fieldCount() const { return static_cast<int>(fields_.size()); }
    QRectF fieldRect(int k) const { return fields_.at(k - 1).rect; }
    bool fieldVisible(int k) const { return fields_.at(k - 1).visible; }
    int fieldPicture(int k) const { return fields_.at(k - 1).picture; }

    // Pictures of fields 1 .. size of `pictures` (indexes of the 16 field pictures).
    void setPictures(const std::vector<int>& pictures);

    // Highest index of l, and label n (1-based) of it.
    int labelCount() const { return static_cast<int>(labels_.size()); }
    QString labelCaption(int n) const { return labels_.at(n - 1).caption; }
    QRectF labelRect(int n) const { return labels_.at(n - 1).rect; }

    // Names field k (1-based) for the tooltip of the field under the mouse pointer; a name
    // that cannot be made shows no tooltip.
    void setFieldNames(std::function<QString(int)> names) { fieldNames_ = std::move(names); }

    // Bounding box in twips of everything shown; empty when nothing is.
    QRectF contentRect() const;

signals:
    void clicked(int k);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Field {
        QRectF rect;
        bool visible = false;
        int picture = 0;
    };
    struct Label {
        QRectF rect;
        bool visible = false;
        QString caption;
    };

    const Field& firstField() const;
    Label& loadLabel();
    void fitToContent();
    QRect toWidgetPixels(const QRectF& twips) const;
    int fieldAt(const QPoint& point) const;

    std::vector<Field> fields_;
    std::vector<Label> labels_;
    std::vector<QPixmap> pictures_;  // entry 0 unused
    QFont labelFont_;
    QPoint originTwips_;
    int pressedField_ = 0;
    std::function<QString(int)> fieldNames_;
};

}  // namespace trelvin
