// Feeds the files of the folders given to a fuzz target, where there is no fuzzer. A target that fails ends the
// process.
#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille);

int main(int argc, char** argv)
{
    int fichiers = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator it(QFile::decodeName(argv[i]), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile fichier(it.next());
            if (!fichier.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(fichier.fileName()));
                return 1;
            }
            // Said before it runs: the last name is the one that fails.
            std::printf("%s\n", qPrintable(fichier.fileName()));
            std::fflush(stdout);
            const QByteArray entree = fichier.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(entree.constData()),
                                   static_cast<size_t>(entree.size()));
            ++fichiers;
        }
    }
    std::printf("%d inputs\n", fichiers);
    // A corpus that is not there would pass in silence.
    return fichiers > 0 ? 0 : 1;
}
