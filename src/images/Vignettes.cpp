#include "images/Vignettes.h"

#include "images/FichierImage.h"
#include "images/LireImage.h"
#include "kit/Icones.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int FaitesAuPlus = 1000;
// More than a screen shows: what was scrolled past meanwhile need not be made.
constexpr int DemandeesAuPlus = 100;

} // namespace

Vignettes::Vignettes(int cote, qreal finesse, QObject* parent)
    : QObject(parent), m_cote(cote), m_finesse(finesse), m_faites(FaitesAuPlus)
{
    m_atelier.setMaxThreadCount(1);
}

Vignettes::~Vignettes()
{
    m_atelier.waitForDone();
}

QPixmap Vignettes::Donner(const QString& nom)
{
    if (const QPixmap* faite = m_faites.object(nom))
        return *faite;
    if (nom != m_enCours) {
        m_demandees.removeOne(nom);
        m_demandees.append(nom);
        if (m_demandees.size() > DemandeesAuPlus)
            m_demandees.removeFirst();
        Lancer();
    }
    return {};
}

void Vignettes::Lancer()
{
    if (!m_enCours.isEmpty() || m_demandees.isEmpty())
        return;
    m_enCours = m_demandees.takeLast();
    const QSize place = QSize(m_cote, m_cote) * m_finesse;
    m_atelier.start([this, nom = m_enCours, fichier = FichierImage(m_dossier, m_enCours), place] {
        const QImage image = LireImage(fichier, place);
        QMetaObject::invokeMethod(
            this, [this, nom, image] { Recevoir(nom, image); }, Qt::QueuedConnection);
    });
}

void Vignettes::Recevoir(const QString& nom, const QImage& image)
{
    auto* vignette = new QPixmap(image.isNull() ? Icone(u"icoerror"_s).pixmap(QSize(m_cote, m_cote) / 2, m_finesse)
                                                : QPixmap::fromImage(image));
    vignette->setDevicePixelRatio(m_finesse);
    m_faites.insert(nom, vignette);
    m_enCours.clear();
    emit Prete(nom);
    Lancer();
}
