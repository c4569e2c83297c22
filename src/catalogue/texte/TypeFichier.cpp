#include "catalogue/texte/TypeFichier.h"

#include "base/AfficherMsg.h"
#include "catalogue/archive/ccZip.h"
#include "platform/NomsSysteme.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>

namespace {

constexpr QByteArrayView TexteNu("[FileInfo]");
constexpr QByteArrayView SignatureZip("PK\3\4");

/// The first bytes of a file, fewer when it is shorter; nothing when it cannot be read. Does not wait for a pipe.
std::optional<QByteArray> PremiersOctets(const QString& chemin, qsizetype nombre)
{
    const int descripteur = open(OctetsDuChemin(chemin).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descripteur < 0)
        return std::nullopt;
    QByteArray octets(nombre, Qt::Uninitialized);
    qsizetype lus = 0;
    ssize_t n = 0;
    do {
        n = read(descripteur, octets.data() + lus, static_cast<size_t>(nombre - lus));
        lus += n > 0 ? n : 0;
    } while ((n > 0 && lus < nombre) || (n < 0 && errno == EINTR));
    close(descripteur);
    if (n < 0)
        return std::nullopt;
    return octets.first(lus);
}

} // namespace

int TypeFichier(const QString& chemin)
{
    const std::optional<QByteArray> debut = PremiersOctets(chemin, TexteNu.size());
    if (!debut) {
        AfficherMsg(Message(u"trap"), MsgOk, QString());
        return 0;
    }
    if (*debut == TexteNu)
        return 1;
    if (!debut->startsWith(SignatureZip))
        return 0;
    ccZip archive;
    archive.Init(chemin);
    return archive.Col.contains(QStringLiteral("Zelvane.qrt")) ? 2 : 0;
}
