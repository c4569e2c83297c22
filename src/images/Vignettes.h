// Small pictures of a folder's images, made when they are asked for and off the user-interface thread, so that a list
// of thousands opens at once.
#pragma once

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QStringList>
#include <QThreadPool>

class Vignettes : public QObject
{
    Q_OBJECT

public:
    /// `cote`: the side of a small picture, in device-independent pixels; `finesse`: device pixels to one of these.
    Vignettes(int cote, qreal finesse, QObject* parent);
    /// Waits for the picture that is being decoded.
    ~Vignettes() override;

    /// `dossier`: with its trailing separator.
    void SetDossier(const QString& dossier) { m_dossier = dossier; }
    int Cote() const { return m_cote; }

    /// The small picture of an image, or a mark for one that cannot be decoded. Null while it is not there yet: it is
    /// made then, what was asked for last first, and Prete tells.
    QPixmap Donner(const QString& nom);

signals:
    void Prete(const QString& nom);

private:
    void Lancer();
    void Recevoir(const QString& nom, const QImage& image);

    int m_cote;
    qreal m_finesse;
    QString m_dossier;
    QCache<QString, QPixmap> m_faites;
    QStringList m_demandees;
    QString m_enCours; ///< the name being decoded; empty for none
    QThreadPool m_atelier;
};
