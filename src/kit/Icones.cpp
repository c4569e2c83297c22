#include "kit/Icones.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

// At file level, as the resource's own macro demands.
static void ChargerRessource()
{
    Q_INIT_RESOURCE(icones);
}

namespace {

QString CheminIcone(const QString& nom)
{
    return u":/icones/"_s + nom + u".svg"_s;
}

QByteArray Vecteurs(const QString& nom, const QColor& encre)
{
    QFile fichier(CheminIcone(nom));
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    return fichier.readAll().replace("currentColor", encre.name().toLatin1());
}

QColor Encre(QIcon::Mode mode)
{
    return QGuiApplication::palette().color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text);
}

/// Draws one file of vectors in the colours of the theme.
class MoteurIcone : public QIconEngine
{
public:
    explicit MoteurIcone(QString nom) : m_nom(std::move(nom)) {}

    QIconEngine* clone() const override { return new MoteurIcone(m_nom); }
    QString key() const override { return u"zelvane"_s; }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QRectF carre = Carre(rect);
        const bool enPixels = painter->paintEngine()->type() == QPaintEngine::Raster &&
                              painter->worldTransform().type() <= QTransform::TxTranslate;
        if (!enPixels) {
            Dessiner(*painter, carre, mode);
            return;
        }
        // A table draws many on each frame: reading the vectors again would take longer than its texts.
        const QSize taille = (carre.size() * painter->device()->devicePixelRatioF()).toSize();
        painter->drawPixmap(carre, pixmap(taille, mode, state), QRectF(QPointF(), taille));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QString cle = u"zelvane/%1/%2x%3/%4/%5"_s.arg(m_nom)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode)
                                .arg(Encre(mode).rgba());
        QPixmap image;
        if (QPixmapCache::find(cle, &image))
            return image;
        image = QPixmap(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        Dessiner(painter, Carre(image.rect()), mode);
        QPixmapCache::insert(cle, image);
        return image;
    }

private:
    static constexpr double OpaciteInactive = 0.4;

    /// The largest square in the middle of `rect`: icons keep their proportions.
    static QRectF Carre(const QRect& rect)
    {
        const int cote = qMin(rect.width(), rect.height());
        QRect carre(0, 0, cote, cote);
        carre.moveCenter(rect.center());
        return carre;
    }

    void Dessiner(QPainter& painter, const QRectF& carre, QIcon::Mode mode) const
    {
        if (mode == QIcon::Disabled)
            painter.setOpacity(painter.opacity() * OpaciteInactive);
        QSvgRenderer(Vecteurs(m_nom, Encre(mode))).render(&painter, carre);
    }

    QString m_nom;
};

} // namespace

QIcon Icone(const QString& nom)
{
    ChargerRessource();
    return QFile::exists(CheminIcone(nom)) ? QIcon(new MoteurIcone(nom)) : QIcon();
}
