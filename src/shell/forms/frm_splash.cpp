#include "shell/forms/frm_splash.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace tt::gui {

QString VersionText() {
    return QString("Version %1.%2.%3")
        .arg(TALLY_VERSION_MAJOR)
        .arg(TALLY_VERSION_MINOR)
        .arg(TALLY_VERSION_PATCH);
}

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmSplash");
    setFixedSize(460, 260);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(3);
    auto* lblPlatform = new QLabel("Windows 95", this);
    lblPlatform->setObjectName("lblPlatform");
    auto* lblVersion = new QLabel(VersionText(), this);
    lblVersion->setObjectName("lblVersion");
    for (QLabel* l : {lblPlatform, lblVersion}) {
        l->setAlignment(Qt::AlignRight);
        l->setStyleSheet("color: #f4ecd0;");
        layout->addWidget(l);
    }
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient g(0, 0, 0, height());
    g.setColorAt(0, QColor(28, 86, 48));
    g.setColorAt(1, QColor(14, 48, 26));
    p.fillRect(rect(), g);
    p.setPen(QPen(QColor(240, 230, 190, 90), 3));
    for (int i = 0; i < 4; ++i)
        p.drawArc(QRectF(-120 + i * 14, 120 + i * 14, 700 - i * 28, 300), 20 * 16, 140 * 16);
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() * 2.6);
    f.setBold(true);
    f.setItalic(true);
    p.setFont(f);
    p.setPen(QColor(250, 240, 200));
    p.drawText(QRect(0, 40, width(), 70), Qt::AlignCenter, "Tamberlin Tally");
    QFont s = font();
    s.setPointSizeF(s.pointSizeF() * 1.1);
    p.setFont(s);
    p.drawText(QRect(0, 105, width(), 30), Qt::AlignCenter,
               "Pari-mutuel betting for private race days");
}

}  // namespace tt::gui
