#include "bench/LargePackage.h"

#include "tests/support/PackageBuilder.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

namespace LargePackage {

namespace {

constexpr int kPages = 20;
constexpr int kElements = 60;
constexpr int kChannels = 150;
constexpr int kWidth = 800;
constexpr int kHeight = 480;

QByteArray backgroundImage(int page)
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, kWidth, kHeight);
    gradient.setColorAt(0, QColor::fromHsv(page * 17 % 360, 200, 90));
    gradient.setColorAt(1, QColor::fromHsv(page * 31 % 360, 120, 20));
    painter.fillRect(image.rect(), gradient);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 3));
    for (int i = 0; i < kElements; ++i)
        painter.drawEllipse(QPoint(i * 13, (i * i + page) % kHeight), 40 + i % 20, 40 + i % 20);
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

QByteArray channelName(int index)
{
    return "Channel " + QByteArray::number(index);
}

TestPackage::Object largeElement(int page, int index)
{
    const QByteArray name = "mask." + QByteArray::number(page * kElements + index);
    TestPackage::Object element =
        TestPackage::digitElement(name, index % 10 * 80, index / 10 * 80, 76, 70,
                                  channelName((page * kElements + index) % kChannels));
    TestPackage::Object label =
        TestPackage::styleObject("Label", "Basic Sans SF", 12, "0xffffffff");
    label.properties.push_back({"TEXT", name});
    element.objects.push_back(label);
    TestPackage::Object alarm{"AlarmParam", {}, {}, {}};
    for (int i = 0; i < 12; ++i)
        alarm.properties.push_back(TestPackage::number("LIMIT_" + QByteArray::number(i), i * 100));
    element.objects.push_back(alarm);
    return element;
}

QByteArray overlay()
{
    std::vector<TestPackage::Object> pages;
    for (int page = 0; page < kPages; ++page) {
        std::vector<TestPackage::Object> elements;
        for (int index = 0; index < kElements; ++index)
            elements.push_back(largeElement(page, index));
        pages.push_back(TestPackage::page("Page " + QByteArray::number(page + 1), kWidth, kHeight,
                                          std::move(elements)));
    }
    return TestPackage::overlayXml(pages, kWidth, kHeight);
}

QByteArray device()
{
    std::vector<TestPackage::Channel> channels;
    for (int index = 0; index < kChannels; ++index)
        channels.push_back(
            {index + 1, channelName(index), "Ch" + QByteArray::number(index), "rpm"});
    return TestPackage::deviceXml("MXG", 17, channels);
}

} // namespace

std::map<QString, QByteArray> members()
{
    std::map<QString, QByteArray> members{{QStringLiteral("overlay.ov3.xml"), overlay()},
                                          {QStringLiteral("large.aimcfg"), device()}};
    for (int page = 0; page < kPages; ++page)
        members[QString::number(page) + QStringLiteral(".png")] = backgroundImage(page);
    return members;
}

} // namespace LargePackage
