// What a widget draws as text, in which fonts: a paint device that keeps the texts in place of their pictures.
#pragma once

#include <QFontInfo>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

#include <utility>
#include <vector>

namespace tolvan {

class DrawnTexts : public QPaintDevice {
  public:
    explicit DrawnTexts(QWidget& widget) : size_(widget.size()) { widget.render(this); }

    // The family that really draws it and the text of each piece, in the order of drawing.
    std::vector<std::pair<QString, QString>> texts;

  protected:
    class Engine : public QPaintEngine {
      public:
        explicit Engine(DrawnTexts& device) : QPaintEngine(AllFeatures), device_(device) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void drawPath(const QPainterPath&) override {}
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF&, const QTextItem& item) override {
            device_.texts.emplace_back(QFontInfo(item.font()).family(), item.text());
        }
        Type type() const override { return User; }

      private:
        DrawnTexts& device_;
    };

    QPaintEngine* paintEngine() const override { return &engine_; }
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return size_.width();
            case PdmHeight:
                return size_.height();
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 96;
            case PdmDevicePixelRatio:
                return 1;
            default:
                return QPaintDevice::metric(metric);
        }
    }

  private:
    QSize size_;
    mutable Engine engine_{*this};
};

}  // namespace tolvan
