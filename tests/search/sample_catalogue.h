#pragma once

#include "core/serial_date.h"
#include "support/catalogue_fixture.h"

// A catalogue of two scanned units, with files of every type and some notes.
struct SampleCatalogue : test::CatalogueFixture {
    SampleCatalogue() {
        const auto on = core::serialOfDate;
        const double newYear = on(2004, 1, 1);
        add({test::folderRow("Fotos :", "E:\\fotos"),
             file("fotos", "foto1.jpg", 100, on(2003, 5, 1), "en la playa"),
             file("fotos", "foto2.JPG", 2000, on(2003, 5, 31)),
             file("fotos", "cinta.mpeg", 9000, on(2003, 6, 1)), test::folderRow("Discos :", "E:\\sonidos"),
             file("sonidos", "b.mp3", 30, newYear, "jazz"), file("sonidos", "a.mid", 10, newYear, "jazz"),
             file("sonidos", "a.Mp3", 20, newYear), file("sonidos", "a.vox", 5, newYear),
             file("sonidos", "a.asfa", 5, newYear), file("sonidos", "a.avi", 700, newYear, "jazz"),
             file("sonidos", "z.exe", 60, newYear), file("sonidos", "z.html", 60, newYear, "jazz"),
             file("sonidos", "z.zip", 60, newYear, "jazz")});
    }

  private:
    static core::CatalogRow file(const std::string& folder, const std::string& name, int kilobytes,
                                 double fecha, std::optional<std::string> note = {}) {
        core::CatalogRow row =
            test::fileRow(folder == "fotos" ? "Fotos :" : "Discos :", "E:\\" + folder, name, kilobytes);
        row.fecha = fecha;
        row.comentario = std::move(note);
        return row;
    }
};
