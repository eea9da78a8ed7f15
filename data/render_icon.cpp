// Draws the program's icon at the sizes the desktop's icon theme takes, from the same picture the
// program shows in its windows:
//
//   render-icon ICON.svg OUTDIR NAME SIZE...
//
// writes OUTDIR/SIZExSIZE/NAME.png for each size.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc < 5) {
        std::fprintf(stderr, "usage: render-icon ICON.svg OUTDIR NAME SIZE...\n");
        return 2;
    }
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "render-icon: cannot read %s\n", argv[1]);
        return 1;
    }
    for (int i = 4; i < argc; ++i) {
        const int size = QString(argv[i]).toInt();
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p);
        p.end();
        const QString dir = QString("%1/%2x%2").arg(QString::fromLocal8Bit(argv[2])).arg(size);
        QDir().mkpath(dir);
        const QString path = dir + "/" + QString::fromLocal8Bit(argv[3]) + ".png";
        if (!image.save(path)) {
            std::fprintf(stderr, "render-icon: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
