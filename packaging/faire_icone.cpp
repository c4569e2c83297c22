// Draws an SVG at the sizes of an icon file:  faire_icone IN.svg OUT.ico
//
// The images are PNG: what makes the file association takes them out again for the desktop's own icon folders.
#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

QByteArray Dessiner(QSvgRenderer& dessin, int cote)
{
    QImage image(cote, cote, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    dessin.render(&peintre);
    peintre.end();
    QByteArray png;
    QBuffer tampon(&png);
    image.save(&tampon, "PNG");
    return png;
}

QByteArray Assembler(QSvgRenderer& dessin)
{
    const QList<int> cotes{16, 24, 32, 48, 64, 128, 256};
    QByteArray entete, images;
    QDataStream flux(&entete, QIODevice::WriteOnly);
    flux.setByteOrder(QDataStream::LittleEndian);
    flux << quint16(0) << quint16(1) << quint16(cotes.size());
    const qsizetype tailleEntete = 6 + 16 * cotes.size();
    for (const int cote : cotes) {
        const QByteArray png = Dessiner(dessin, cote);
        // A side of 256 is written as 0.
        flux << quint8(cote) << quint8(cote) << quint16(0) << quint16(1) << quint16(32) << quint32(png.size())
             << quint32(tailleEntete + images.size());
        images += png;
    }
    return entete + images;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: faire_icone IN.svg OUT.ico\n", stderr);
        return 2;
    }
    QSvgRenderer dessin(QString::fromLocal8Bit(argv[1]));
    QFile sortie(QString::fromLocal8Bit(argv[2]));
    if (!dessin.isValid() || !sortie.open(QIODevice::WriteOnly)) {
        std::fputs("faire_icone: cannot read the drawing or write the icon\n", stderr);
        return 1;
    }
    const QByteArray ico = Assembler(dessin);
    return sortie.write(ico) == ico.size() && sortie.flush() ? 0 : 1;
}
