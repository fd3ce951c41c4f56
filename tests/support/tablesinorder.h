#pragma once

#include <QStringList>

// The 26 tables of the schema in the order the run creates them.
inline QStringList tablesInCreationOrder()
{
    return {"tblCareOf",         "tblClosingDate",     "tblDBCR",
            "tblLogon",          "tblMonthlyComparisonReportEmpty",
            "tblDailyComparisonReportEmpty",            "tblPartyBalance",
            "tblPartyBalanceEmpty", "tblPartyInfo",     "tblItemCoding",
            "tblInvoice",        "tblInvoiceEmpty",    "tblDeliveryChallan",
            "tblPurchaseStock",  "tblStockEmpty",      "tblEmployeeStock",
            "tblEmployeeInfo",   "tblEmployeeSalary",  "tblOtherServices",
            "tblPostDatedCheque", "tblUserRights",     "tblKWClientInfo",
            "tblPurchaseOrder",  "tblJobCard",         "tblTitleName",
            "tblConfig"};
}
