#include "korvex_loc/KorvexLoc.h"

#include "korvex_loc/Access.h"
#include "korvex_loc/DBHelper.h"
#include "korvex_loc/DBWriter.h"
#include "korvex_loc/Dates.h"
#include "korvex_loc/FileTools.h"
#include "korvex_loc/ListLayout.h"
#include "korvex_loc/Loc.h"
#include "korvex_loc/Picker.h"
#include "korvex_loc/Report.h"
#include "korvex_loc/Wagon.h"

namespace kvx {

namespace {

class Library final : public SiblingLibrary {
public:
    std::unique_ptr<c_Loc> NewLoc() override { return std::make_unique<loc::Loc>(); }
    std::unique_ptr<c_DBHelper> NewDBHelper() override { return std::make_unique<loc::DBHelper>(); }
    std::unique_ptr<c_DBWriter> NewDBWriter() override { return std::make_unique<loc::DBWriter>(); }
    std::unique_ptr<c_Access> NewAccess() override { return std::make_unique<loc::Access>(); }
    std::unique_ptr<c_Dates> NewDates() override { return std::make_unique<loc::Dates>(); }
    std::unique_ptr<c_FileTools> NewFileTools() override { return std::make_unique<loc::FileTools>(); }
    std::unique_ptr<c_ListLayout> NewListLayout() override { return std::make_unique<loc::ListLayout>(); }
    std::unique_ptr<c_Picker> NewPicker() override { return std::make_unique<loc::Picker>(); }
    std::unique_ptr<c_Wagon> NewWagon() override { return std::make_unique<loc::Wagon>(); }
    std::unique_ptr<c_Report> NewReport() override { return std::make_unique<loc::Report>(); }
};

}  // namespace

SiblingLibrary& KorvexLoc()
{
    static Library library;
    return library;
}

}  // namespace kvx
