// The four export files: the grid's cells as they show, in the clear, in fixed layouts.

#include "Exports.h"

#include "grid/Colonnes.h"
#include "grid/ModeleGrille.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/FichierEntier.h"
#include "ui/Chaines.h"

#include <QByteArrayView>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <cstring>

namespace Exports {

namespace {

constexpr int kPremiereLigne = 2;  // rows 0 and 1 are the title and the section
constexpr int kNbChamps = 8;
constexpr int kChaineTitreHtml = 109;
constexpr int kChainePremierLibelle = 110;

constexpr QByteArrayView kFin("\r\n");
constexpr QByteArrayView kTd("<td width='");
constexpr QByteArrayView kPolice("<font face='Verdana, Arial, Helvetica, sans-serif' size='2' color=");
constexpr QByteArrayView kCelluleVide("%'><font face='Verdana, Arial, Helvetica, sans-serif' size='2' color='#FFFFFF'></font></td>");
constexpr QByteArrayView kCelluleChamp("%'><b><font face='Verdana, Arial, Helvetica, sans-serif' size='2' color='#FFFFFF'>&nbsp;&nbsp;&nbsp;&nbsp;");
constexpr std::array<QByteArrayView, 7> kLargeursChamps{"13", "9", "10", "12", "11", "10", "29"};
constexpr std::array<QByteArrayView, 8> kLargeursEspaceur{"6", "13", "9", "10", "12", "11", "10", "29"};

// A file's bytes, line by line; each line ends with CR LF. Pieces are copied straight
// into a buffer: hundreds of megabytes go through here. Bound to a file, the buffer
// goes out to it whenever full; otherwise it grows by doubling. Given a cut, it notes
// where its pieces start: the writer says where for the HTML file, every line is one
// in the others.
class Sortie {
public:
    explicit Sortie(qsizetype prevu, QIODevice *fichier = nullptr, Decoupe *decoupe = nullptr, bool parLigne = false)
        : fichier_(fichier), decoupe_(decoupe), parLigne_(parLigne) {
        octets_.resize(std::max<qsizetype>(prevu, 256));
        tete_ = octets_.data();
        if (parLigne_) borne();
    }
    Sortie &operator<<(QByteArrayView morceau) {
        if (morceau.isEmpty()) return *this;
        if (taille_ + morceau.size() > octets_.size()) faireDeLaPlace(morceau.size());
        std::memcpy(tete_ + taille_, morceau.data(), size_t(morceau.size()));
        taille_ += morceau.size();
        return *this;
    }
    // A text in UTF-8, encoded straight into the buffer.
    Sortie &operator<<(QStringView texte) {
        const qsizetype besoin = utf8_.requiredSpace(texte.size());
        if (taille_ + besoin > octets_.size()) faireDeLaPlace(besoin);
        taille_ = utf8_.appendToBuffer(tete_ + taille_, texte) - tete_;
        return *this;
    }
    // The same, cleaned as NettoyerXml cleans it, on the bytes just encoded: no blank,
    // "é" (C3 A9) as "e", "°" (C2 B0) as a blank.
    void xml(QStringView texte) {
        const qsizetype besoin = utf8_.requiredSpace(texte.size());
        if (taille_ + besoin > octets_.size()) faireDeLaPlace(besoin);
        const qsizetype debut = taille_;  // after the buffer went to the file
        *this << texte;
        const char *lu = tete_ + debut, *const bout = tete_ + taille_;
        char *ecrit = tete_ + debut;
        while (lu < bout) {
            const uchar premier = uchar(lu[0]), second = lu + 1 < bout ? uchar(lu[1]) : 0;
            if (premier == ' ') {
                ++lu;
            } else if ((premier == 0xC3 && second == 0xA9) || (premier == 0xC2 && second == 0xB0)) {
                *ecrit++ = premier == 0xC3 ? 'e' : ' ';
                lu += 2;
            } else {
                *ecrit++ = *lu++;
            }
        }
        taille_ = ecrit - tete_;
    }
    void fin() {
        *this << kFin;
        if (parLigne_) borne();
    }
    void ligne(QByteArrayView texte) {
        *this << texte;
        fin();
    }
    void borne() {
        if (decoupe_) decoupe_->bornes.push_back(sortis_ + taille_);
    }
    QByteArray prendre() {
        octets_.truncate(taille_);
        return std::move(octets_);
    }
    // What is left goes to the file; false when any write to it failed.
    bool vider() {
        if (ok_ && taille_ > 0) ok_ = fichier_->write(tete_, taille_) == taille_;
        sortis_ += taille_;
        taille_ = 0;
        return ok_;
    }

private:
    void faireDeLaPlace(qsizetype besoin) {
        if (fichier_) vider();
        if (taille_ + besoin <= octets_.size()) return;
        octets_.resize(std::max(2 * octets_.size(), taille_ + besoin));
        tete_ = octets_.data();
    }

    QIODevice *fichier_;
    Decoupe *decoupe_;
    bool parLigne_;
    qint64 sortis_ = 0;  // gone to the file
    QStringEncoder utf8_{QStringEncoder::Utf8, QStringConverter::Flag::Stateless};
    QByteArray octets_;
    char *tete_ = nullptr;
    qsizetype taille_ = 0;
    bool ok_ = true;
};

// The rows after the title and the section; NbLignes counts rows deleted since, so
// the grid's own count bounds it.
int finDesLignes(const ModeleGrille &g) { return std::min(g.NbLignes, g.cellules().Rows()); }

// Without the blank the grid puts before a folder's name, nor any at its end; other
// white space is part of the name.
QStringView sansBlancs(QStringView texte) {
    qsizetype debut = 0, fin = texte.size();
    while (debut < fin && texte[debut] == u' ') ++debut;
    while (fin > debut && texte[fin - 1] == u' ') --fin;
    return texte.mid(debut, fin - debut);
}

QStringView nomDossier(const Instantane &g, int ligne) { return sansBlancs(g.champ(ligne, 0)); }

std::array<QByteArray, kNbChamps> libelles() {
    std::array<QByteArray, kNbChamps> l;
    for (int k = 0; k < kNbChamps; ++k) l[size_t(k)] = Chaine(kChainePremierLibelle + k).toUtf8();
    return l;
}

// A rough size of the file, so that the buffer grows once or twice, not at every line.
qsizetype taille(const Instantane &g, qsizetype parLigne) { return qsizetype(g.nbLignes()) * parLigne + 512; }

constexpr QFileDevice::Permissions kDroitsFichier = FichierEntier::kDroitsProprietaire;
constexpr QFileDevice::Permissions kDroitsDossier = kDroitsFichier | QFileDevice::ExeOwner;

// The files hold passwords in the clear: the folder and its files are the user's alone.
void preparerDossier() {
    const QString dossier = Chemins::dossierEdition();
    if (!QDir().mkpath(dossier) || !QFile::setPermissions(dossier, kDroitsDossier))
        throw Base::ErreurBase(QStringLiteral("Le dossier d'export %1 ne peut pas être créé ou protégé.\n"
                                              "Vérifiez les droits du dossier du programme.")
                                   .arg(QDir::toNativeSeparators(dossier)));
}

void ecrireHtm(const Instantane &g, Sortie &s) {
    const auto lib = libelles();
    s << "<title>" << Chaine(kChaineTitreHtml).toUtf8() << "</title>";
    s.fin();
    // The quote stands behind the bracket: the layout of the page is fixed to the byte.
    s.ligne("<body bgcolor='#6699CC' leftmargin='0' topmargin='0' marginwidth='0' marginheight='0>'");
    s.ligne("<table width='100%' border='0' cellspacing='0' cellpadding='0'>");
    for (int r = 0; r < g.nbLignes(); ++r) {
        s.borne();
        if (g.dossier(r)) {
            s.ligne("<br>");
            s.ligne("<tr>");
            s << "<td colspan='8'>" << kPolice << "'red'>[" << nomDossier(g, r) << "]<br>";
            s.fin();
            s.ligne("</font></td>");
            s.ligne("</tr>");
        } else {
            s.ligne("<tr>");
            s << kTd << "6" << kCelluleVide;
            s.fin();
            for (int k = 0; k < 7; ++k) {
                s << "<br>" << kTd << kLargeursChamps[size_t(k)] << kCelluleChamp << lib[size_t(k)] << "</b> : "
                  << g.champ(r, k) << "</font></td>";
                s.fin();
            }
            s.ligne("</tr>");
            s.ligne("<tr>");
            s << kTd << "6" << kCelluleVide;
            s.fin();
            s << "<br><td colspan='7'>" << kPolice << "'0'>&nbsp;&nbsp;&nbsp;&nbsp;" << g.champ(r, 7)
              << "</font></td><br>";
            s.fin();
            s.ligne("</tr>");
        }
        s.ligne("<tr>");
        for (const QByteArrayView largeur : kLargeursEspaceur) {
            s << kTd << largeur << kCelluleVide;
            s.fin();
        }
        s.ligne("</tr>");
    }
    s.borne();
    s.ligne("</table>");
    s.ligne("</body>");
}

void ecrireTxt(const Instantane &g, Sortie &s) {
    const auto lib = libelles();
    for (int r = 0; r < g.nbLignes(); ++r) {
        if (g.dossier(r)) {
            s.fin();
            s << "[" << nomDossier(g, r) << "]";
            s.fin();
            s.fin();
        } else {
            for (int k = 0; k < kNbChamps; ++k) {
                s << "     " << lib[size_t(k)] << " : " << g.champ(r, k);
                s.fin();
            }
            s.fin();
        }
    }
}

void ecrireCsv(const Instantane &g, Sortie &s) {
    for (int r = 0; r < g.nbLignes(); ++r) {
        if (g.dossier(r)) {
            s << "[" << nomDossier(g, r) << "]";
        } else {
            // No quoting: a ";" or a line break in a field breaks the row.
            for (int k = 0; k < kNbChamps; ++k) {
                if (k > 0) s << ";";
                s << g.champ(r, k);
            }
        }
        s.fin();
    }
}

void ecrireXml(const Instantane &g, Sortie &s) {
    // Tag names are the labels cleaned like the values: "Motdepasse>", "Datededebut>".
    std::array<QByteArray, kNbChamps> balises;
    for (int k = 0; k < kNbChamps; ++k)
        balises[size_t(k)] = NettoyerXml(Chaine(kChainePremierLibelle + k) + QStringLiteral("> ")).toUtf8();

    s.ligne("<EditionXml>");
    // A folder's element holds only its name: it closes at the next row, and its
    // documents follow it rather than sit inside it.
    bool DossierOuvert = false;
    for (int r = 0; r < g.nbLignes(); ++r) {
        if (DossierOuvert) {
            s.ligne("</Dossier>");
            DossierOuvert = false;
        }
        if (g.dossier(r)) {
            s.ligne("<Dossier>");
            s << "[";
            s.xml(nomDossier(g, r));
            s << "]";
            s.fin();
            DossierOuvert = true;
        } else {
            // The title's element stays open over the seven others.
            s << "<" << balises[0];
            s.xml(g.champ(r, 0));
            s.fin();
            for (int k = 1; k < kNbChamps; ++k) {
                s << "<" << balises[size_t(k)];
                s.xml(g.champ(r, k));
                s << "</" << balises[size_t(k)];
                s.fin();
            }
            s << "</" << balises[0];
            s.fin();
        }
    }
    // The start of a tree stops at its last row, without the file's end.
    if (!g.complet()) return;
    if (DossierOuvert) s.ligne("</Dossier>");
    s.ligne("</EditionXml>");
}

using Ecrivain = void (*)(const Instantane &, Sortie &);

struct Genre {
    Ecrivain ecrivain;
    qsizetype parLigne;  // a rough size of a row in the file
};
// In the order of Format.
constexpr std::array<Genre, 4> kGenres{{{ecrireHtm, 2600}, {ecrireTxt, 400}, {ecrireCsv, 200}, {ecrireXml, 300}}};

QByteArray enMemoire(int format, const ModeleGrille &g) { return contenu(format, Instantane(g)); }

}  // namespace

Instantane::Instantane(const ModeleGrille &grille, int limite) {
    const grille::Grille &cellules = grille.cellules();
    int fin = finDesLignes(grille);
    if (limite >= 0 && fin - kPremiereLigne > limite) {
        fin = kPremiereLigne + limite;
        complet_ = false;
    }
    lignes_.resize(size_t(std::max(0, fin - kPremiereLigne)));
    for (int r = kPremiereLigne; r < fin; ++r) {
        Ligne &l = lignes_[size_t(r - kPremiereLigne)];
        l.textes = cellules.textesPartages(r);
        l.dossier = grille.IsLigneParent(r);
        for (int k = 0; k < 8; ++k) {
            const QStringView t = cellules.texte(r, Colonne::PremierChamp + k);
            l.debut[size_t(k)] = int(t.data() - l.textes.constData());
            l.longueur[size_t(k)] = int(t.size());
        }
    }
}

QByteArray contenu(int format, const Instantane &lignes, Decoupe *decoupe) {
    const Genre &genre = kGenres[size_t(format)];
    Sortie s(taille(lignes, genre.parLigne), nullptr, decoupe, format != Html);
    genre.ecrivain(lignes, s);
    return s.prendre();
}

// Whole or not at all: a hidden file beside the target, renamed over it at the end.
Decoupe creerFichier(int format, const Instantane &lignes) {
    preparerDossier();
    const QString fichier = chemin(format);
    QSaveFile sortie(fichier);
    Decoupe decoupe;
    // Owner-only before the first byte, whatever rights an older file had.
    bool ok = sortie.open(QIODevice::WriteOnly) && sortie.setPermissions(kDroitsFichier);
    if (ok) {
        Sortie s(1 << 18, &sortie, &decoupe, format != Html);
        kGenres[size_t(format)].ecrivain(lignes, s);
        ok = s.vider() && FichierEntier::valider(sortie);
    }
    if (!ok)
        throw Base::ErreurBase(QStringLiteral("Le fichier d'export %1 n'a pas pu être écrit : %2.\n"
                                              "Vérifiez les droits du dossier et la place libre sur le disque.")
                                   .arg(QDir::toNativeSeparators(fichier), FichierEntier::raisonEchec(sortie)));
    return decoupe;
}

QString chemin(int format) {
    static const char *const noms[] = {"edition.htm", "edition.txt", "csv.txt", "edition.xml"};
    if (format < Html || format > Xml) return QString();
    return QDir(Chemins::dossierEdition()).filePath(QString::fromLatin1(noms[format]));
}

void supprimerFichiers() {
    for (const Format format : kOrdre) QFile::remove(chemin(format));
}

QString libelleCopie(int format) {
    static const char *const libelles[] = {" Html", " Texte", " Csv", " Xml"};
    return format >= Html && format <= Xml ? QString::fromLatin1(libelles[format]) : QString();
}

QString motifCopie(int format) {
    static const char *const motifs[] = {"*.htm *.html", "*.txt", "*.csv", "*.xml"};
    return format >= Html && format <= Xml ? QString::fromLatin1(motifs[format]) : QString();
}

QString NettoyerXml(QStringView texte) {
    // Blanks go first, so that a "°" turned into a blank stays.
    QString net;
    net.reserve(texte.size());
    for (const QChar c : texte) {
        if (c == u' ') continue;
        net.append(c == u'é' ? QChar(u'e') : c == u'°' ? QChar(u' ')
                                                       : c);
    }
    return net;
}

QByteArray contenuHtm(const ModeleGrille &grille) { return enMemoire(Html, grille); }
QByteArray contenuTxt(const ModeleGrille &grille) { return enMemoire(Texte, grille); }
QByteArray contenuCsv(const ModeleGrille &grille) { return enMemoire(Csv, grille); }
QByteArray contenuXml(const ModeleGrille &grille) { return enMemoire(Xml, grille); }

void CreerFicTxt(const ModeleGrille &grille) { creerFichier(Texte, Instantane(grille)); }
void CreerFicCsv(const ModeleGrille &grille) { creerFichier(Csv, Instantane(grille)); }
void CreerFicHtm(const ModeleGrille &grille) { creerFichier(Html, Instantane(grille)); }
void CreerFicXml(const ModeleGrille &grille) { creerFichier(Xml, Instantane(grille)); }

void creerTout(const ModeleGrille &grille) {
    const Instantane lignes(grille);
    for (const Format format : kOrdre) creerFichier(format, lignes);
}

}  // namespace Exports
