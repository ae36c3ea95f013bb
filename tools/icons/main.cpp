// Paints a vector picture at one size: verlink-icons PICTURE.svg SIDE OUT.png
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: verlink-icons PICTURE.svg SIDE OUT.png\n", stderr);
        return 2;
    }
    QSvgRenderer picture(arguments[1]);
    const int side = arguments[2].toInt();
    if (!picture.isValid() || side <= 0) {
        std::fprintf(stderr, "no picture to paint at that size: %s\n", qPrintable(arguments[1]));
        return 1;
    }
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return image.save(arguments[3]) ? 0 : 1;
}
