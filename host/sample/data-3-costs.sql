-- Goods, code tables of cost accounting, wages, persons.

INSERT INTO WARENEINHEIT (EINHEIT_ID, EINHEIT, BESCHREIBUNG, DISABLE, STANDART, NUMMER, LDNR) VALUES
(1, N'Stk', N'Stück', NULL, 1, 1, 10),
(2, N'Fm', N'Festmeter', NULL, 0, 2, 20),
(3, N'Rm', N'Raummeter', NULL, 0, 3, 30),
(4, N'Std', N'Stunde', NULL, 0, 4, 40),
(5, N'ha', N'Hektar', NULL, 0, 5, 50),
(6, N'kg', N'Kilogramm', NULL, 0, 6, 60),
(7, N'lfm', N'Laufender Meter', NULL, 0, 7, 70),
(8, N'Tag', N'Tag', 1, 0, 8, 80)
GO

INSERT INTO WARENGRUPPE (GRUPPE_ID, NUMMER, GRUPPE, MWST, EINHEIT_ID, LFNR, INFO, DISABLE) VALUES
(1, 1, N'Forstpflanzen', 7, 1, 10, N'Herkunft nach Forstvermehrungsgutgesetz angeben.', NULL),
(2, 2, N'Wildbret', 7, 6, 20, NULL, NULL),
(3, 3, N'Weihnachtsbäume', 10.7, 1, 30, NULL, NULL),
(4, 4, N'Zaunbau', 19, 7, 40, NULL, NULL),
(5, 5, N'Dienstleistungen', 19, 4, 50, N'Abrechnung nach Stundenzettel.', NULL)
GO

INSERT INTO WARENKATALOG (ART_ID, BEZEICH1, GRUPPE_ID, LIEFERANT_ID, PREIS) VALUES
(1, N'Rotbuche 3-jährig 50/80', 1, 20, 0.95),
(2, N'Douglasie 2+1 30/60', 1, 20, 1.1),
(3, N'Nordmanntanne 1,75 m', 3, 0, 32),
(4, N'Rehwild in der Decke', 2, NULL, 6.5),
(5, N'Wildschutzzaun 1,60 m', 4, 21, 7.8),
(6, N'Harvestereinsatz', 5, 11, 145)
GO

-- Each owner has lists of his own: ST for the state, KO for the municipality.
INSERT INTO PRODUKT (ID, TABLE_NAME, GRUPPE, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', 50, 100, N'Stammholz', NULL),
(2, N'ST', 50, 110, N'Industrie- und Energieholz', NULL),
(3, N'ST', 51, 200, N'Schutz und Sanierung', NULL),
(4, N'ST', 51, 300, N'Erholung und Umweltbildung', NULL),
(5, N'KO', 50, 100, N'Holz Gemeindewald', NULL)
GO

INSERT INTO LEISTUNGSART (ID, TABLE_NAME, GRUPPE, PRODUKT_ID, NUMBER, NAME, MENGENEINHEIT, FLACHE, ALLOW_HOLZ, ERLOSE, KOSTEN,
    STUNDEN, MAS, HSGR, DISABLE) VALUES
(1, N'ST', 10, 1, 1010, N'Holzernte motormanuell', 2, 0, 1, 0, 1, 1, 0, N'''STH'',''IND''', NULL),
(2, N'ST', 10, 1, 1020, N'Holzernte Harvester', 2, 0, 1, 0, 1, 0, 1, N'''STH'',''IND''', NULL),
(3, N'ST', 10, 2, 1030, N'Rücken', 2, 0, 1, 0, 1, 1, 1, NULL, NULL),
(4, N'ST', 11, 3, 2010, N'Pflanzung', 1, 1, 0, 0, 1, 1, 0, NULL, NULL),
(5, N'ST', 11, 3, 2020, N'Kulturpflege', 5, 1, 0, 0, 1, 1, 0, NULL, NULL),
(6, N'ST', 12, 3, 3010, N'Zaunbau', 7, 0, 0, 0, 1, 1, 0, NULL, NULL),
(7, N'ST', 13, NULL, 4010, N'Wegeunterhaltung', 7, 0, 0, 0, 1, 0, 1, NULL, NULL),
(8, N'ST', 14, NULL, 9010, N'Revierleitung', 4, 0, 0, 0, 1, 1, 0, NULL, NULL),
(9, N'KO', 10, 5, 1010, N'Holzernte Gemeinde', 2, 0, 1, 1, 1, 1, 0, NULL, NULL)
GO

INSERT INTO KOSTENART (ID, TABLE_NAME, GRUPPE, NUMBER, NAME, DIREKTERLOHN, LNK, ERLOSE, DISABLE) VALUES
(1, N'ST', 20, N'4100', N'Löhne Waldarbeiter', 1, 0, 0, NULL),
(2, N'ST', 20, N'4110', N'Lohnnebenkosten', 0, 1, 0, NULL),
(3, N'ST', 21, N'4200', N'Forstpflanzen', 0, 0, 0, NULL),
(4, N'ST', 21, N'4210', N'Zaunmaterial', 0, 0, 0, NULL),
(5, N'ST', 22, N'4300', N'Unternehmerleistungen', 0, 0, 0, NULL),
(6, N'ST', NULL, N'8100', N'Holzerlöse', 0, 0, 1, NULL),
(7, N'KO', 20, N'4100', N'Löhne Gemeinde', 1, 0, 0, NULL)
GO

INSERT INTO KOSTENSTELLE_TYP (NUMMER, SHORT, LONG, DISABLE) VALUES
(N'10', N'REV', N'Revier', NULL),
(N'20', N'MASCH', N'Maschine', NULL),
(N'30', N'GEB', N'Gebäude', NULL),
(N'90', N'ALT', N'Stillgelegt', 1)
GO

INSERT INTO KOSTENSTELLE (ID, TABLE_NAME, GRUPPE, NUMBER, ID_KOSTENSTELLE_TYP, NAME, DISABLE) VALUES
(1, N'ST', 30, 101, 1, N'Revier Mühlbach', NULL),
(2, N'ST', 30, 102, 1, N'Revier Birkenhain', NULL),
(3, N'ST', 30, 103, 1, N'Revier Grünau', NULL),
(4, N'ST', 31, 201, 2, N'Harvester 1', NULL),
(5, N'ST', 31, 202, 2, N'Rückezug 1', NULL),
(6, N'KO', 30, 100, 1, N'Gemeindewald', NULL)
GO

INSERT INTO OBJEKT (ID, TABLE_NAME, GRUPPE, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', 40, 10, N'Forsthof Röbel', NULL),
(2, N'ST', 40, 20, N'Waldarbeiterhütte Speck', NULL),
(3, N'ST', 41, 30, N'Geländewagen MSE-FA 12', NULL)
GO

INSERT INTO HH_KAPITEL (ID, TABLE_NAME, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', N'0801', N'Forstverwaltung', NULL),
(2, N'ST', N'0802', N'Forstbetriebe', NULL)
GO

INSERT INTO HH_TITEL (ID, TABLE_NAME, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', N'119 01', N'Einnahmen aus Holzverkauf', NULL),
(2, N'ST', N'425 01', N'Löhne', NULL),
(3, N'ST', N'547 01', N'Sachausgaben', NULL)
GO

INSERT INTO HH_HUL (ID, TABLE_NAME, NUMBER, NAME) VALUES
(1, N'ST', 1, N'Haushaltsüberwachung Einnahmen'),
(2, N'ST', 2, N'Haushaltsüberwachung Ausgaben')
GO

INSERT INTO ZUHLUNGSART (ID, TABLE_NAME, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', 1, N'Überweisung', NULL),
(2, N'ST', 2, N'Lastschrift', NULL),
(3, N'ST', 3, N'Bar', NULL)
GO

INSERT INTO ZUHLUNGSGRUND (ID, TABLE_NAME, NUMBER, NAME, DISABLE) VALUES
(1, N'ST', 10, N'Holzkauf', NULL),
(2, N'ST', 20, N'Pacht', NULL)
GO

INSERT INTO ZUSCHLAGSWERTE (ID, TABLE_NAME, GRUPPE, NUMBER, NAME, PROZENT, DISABLE) VALUES
(1, N'ST', 70, 1, N'Hanglage', 15, NULL),
(2, N'ST', 70, 2, N'Schnee über 30 cm', 20, NULL),
(3, N'ST', NULL, 3, N'Unterwuchs', 7.5, NULL)
GO

INSERT INTO VERFAHREN (TABLE_NAME, NUMBER, GRUPPE, NAME, ID_LEISTUNGSART, DISABLE) VALUES
(N'ST', 10, 90, N'Motorsäge und Seilschlepper', 1, 0),
(N'ST', 20, 91, N'Harvester und Rückezug', 2, 0),
(N'ST', 30, 90, N'Zufällen zur Gasse', 1, 1)
GO

INSERT INTO BZT (NUMBER, BZT_SHORT, BZT_LANG) VALUES
(10, N'BU-FI', N'Buche mit Fichte'),
(20, N'EI-HBU', N'Eiche mit Hainbuche'),
(30, N'KI-BU', N'Kiefer mit Buche'),
(40, N'DGL-BU', N'Douglasie mit Buche')
GO

INSERT INTO ONETOMANY (RELATION, ID_MASTER, ID_SLAVE) VALUES
(N'LEISTUNGSART.NUTZUNGSART', 1, 1),
(N'LEISTUNGSART.NUTZUNGSART', 1, 2),
(N'LEISTUNGSART.NUTZUNGSART', 2, 2),
(N'LEISTUNGSART.HOLZART', 1, 1),
(N'LEISTUNGSART.HOLZART', 1, 8),
(N'LEISTUNGSART.KOSTENSTELLE_TYP', 1, 1),
(N'KOSTENART.LEISTUNGSART', 1, 1),
(N'KOSTENART.LEISTUNGSART', 1, 4)
GO

INSERT INTO EINHEIT (ID, NAME) VALUES
(1, N'Stunde'),
(2, N'Tag'),
(3, N'Prozent'),
(4, N'Euro')
GO

INSERT INTO DLS_LG (DLS_LG, LANG_NAME) VALUES
(0, N'ohne'),
(1, N'Dienstleistung'),
(2, N'Lohngruppe')
GO

INSERT INTO LOHNARTEN (ID, TABLE_NAME, GRUPPE, NUMBER, NAME, SLA, EINHEIT, DLS_LG, KOSTENART_ID, SUMME_STD, TO_NETTO,
    SOCIALZUSCHLAG, VBL, BERECHNUNGSMODUS, TFIELD1, TFIELD2, NFIELD1, CHK1, DISABLE) VALUES
(1, N'ST', 80, 100, N'Zeitlohn', 0, 1, 2, 1, 1, 0, 1, 1.41, 1, N'Z', NULL, NULL, 0, NULL),
(2, N'ST', 80, 110, N'Leistungslohn', 1, 1, 2, 1, 1, 0, 1, 1.41, 2, N'L', NULL, NULL, 0, NULL),
(3, N'ST', 81, 200, N'Erschwerniszuschlag', 0, 3, 0, 1, 0, NULL, 0, NULL, 3, NULL, NULL, 12.5, 1, NULL),
(4, N'ST', 81, 210, N'Motorsägenentschädigung', 0, 1, 0, 2, 0, 1, 0, NULL, 1, NULL, N'MS', 3.85, 1, NULL),
(5, N'KO', 80, 100, N'Zeitlohn Gemeinde', 0, 1, 0, 7, 1, 0, 0, NULL, 1, NULL, NULL, NULL, 0, NULL)
GO

INSERT INTO LOHNGRUPPE (DATEWHILE, NAMETAB, NAME, BEZEICHNUNG, BETRAG, EURO, DISABLE) VALUES
('20240101', NULL, N'W3', N'Waldarbeiter', 14.85, 1, 0),
('20240101', NULL, N'W5', N'Forstwirt', 17.2, 1, 0),
('20240101', NULL, N'W6', N'Forstwirt mit Zusatzaufgaben', 18.05, 1, 0),
('20240101', NULL, N'W8', N'Forstwirtschaftsmeister', 20.4, 1, 0),
('20220101', NULL, N'W5', N'Forstwirt', 16.1, 1, 0)
GO

INSERT INTO LOHNABSCHLUSS (JAHR, MONAT, ASCHLUSS_L) VALUES
(2023, 11, 1),
(2023, 12, 1),
(2024, 1, 0)
GO

INSERT INTO BBF_SATZ_GF (BIS_DATUM, SATZ_MZ, SATZ_WZ, GF_AZ_EST, GF_MZ_EST, GF_STKL, KAPPUNG_AZ_EST, KAPPUNG_AZ_STKL,
    KAPPUNG_MZ_STKL, MINDESTLOHN_EST) VALUES
('20231231', 0.12, 0.08, 0.31, 0.14, 0.29, 140, 130, 60, 12),
('20301231', 0.13, 0.09, 0.33, 0.15, 0.3, 140, 130, 60, 12.41)
GO

INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM, RATE, TEXT) VALUES
(N'LOHNARTEN.SATZ', 1, '20220101', 16.1, NULL),
(N'LOHNARTEN.SATZ', 1, '20240101', 17.2, NULL),
(N'LOHNARTEN.SATZ', 1, '20780101', 25, NULL),
(N'LOHNARTEN.SATZ', 2, '20240101', 18.75, NULL),
(N'LOHNARTEN.ENTWSTUFFE', 1, '20240101', 3, NULL),
(N'PERSONAL.DLS', 30, '20231001', 42.5, NULL),
(N'PERSONAL.DLS', 30, '20240401', 44, NULL),
(N'PERSONAL.LOHNGRUPPE', 30, '20231001', NULL, N'W5'),
(N'PERSONAL.LOHNGRUPPE', 30, '20240201', NULL, N'W6')
GO

-- 1 and 2 are owners with accounts and code lists of their own; 3 to 5 owners without; 10 to 15 customers and haulers; 20
-- and 21 suppliers; 30 and 31 workers; 40 to 44 members of the forest owners' association, by district number.
INSERT INTO PERSONAL (ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, STRASSE, PLZ, ORT, ID_T_BUNDESLAND, ID_FORSTAMT, MANDANTEN,
    ABRECH2, LOHNGRUPPE, DLS) VALUES
(1, N'1010001', N'Land', N'Land Musterland, Landesforst', N'Schlossplatz 1', N'17192', N'Waren (Müritz)', 8, 3, 1, 0, NULL, NULL),
(2, N'3010001', N'Stadt Wörth', N'Stadt Wörth am Rhein', N'Mozartstraße 2', N'76744', N'Wörth', 11, 8, 1, 0, NULL, NULL),
(3, N'2010001', N'von Söhrenthal', N'Freiherr von Söhrenthal''sche Forstverwaltung', N'Schlossweg 3', N'34320', N'Söhrewald', 7, 5, 1, 0, NULL, NULL),
(4, N'1020001', N'Kirchenwald', N'Evangelische Kirchengemeinde Lübben', N'Am Markt 5', N'15907', N'Lübben', 4, 6, 1, 0, NULL, NULL),
(5, N'2020001', NULL, N'Waldgenossenschaft Gersfeld', NULL, N'36129', N'Gersfeld', 7, 4, 1, 0, NULL, NULL),
(10, N'9000010', N'Säge Brunner', N'Sägewerk Brunner GmbH', N'Industriestraße 8', N'37444', N'St. Andreasberg', 9, NULL, 0, 0, NULL, NULL),
(11, N'9000011', N'Forst Köhler', N'Forstunternehmen Köhler', N'Waldstraße 12', N'17207', N'Röbel', 8, NULL, 0, 0, NULL, NULL),
(12, N'9000012', N'Zellstoff Nord', N'Zellstoffwerke Nord AG', N'Am Hafen 1', N'39596', N'Arneburg', 14, NULL, 0, 0, NULL, NULL),
(13, N'9000013', N'Fuhr Äckerle', N'Spedition Äckerle', N'Rheinweg 40', N'76744', N'Wörth', 11, NULL, 0, 0, NULL, NULL),
(14, N'9000014', N'Brennholz Weiß', N'Brennholzhandel Weiß', NULL, N'34320', N'Söhrewald', 7, NULL, 0, 0, NULL, NULL),
(15, N'9000015', N'Rücke Huber', N'Rückebetrieb Huber', NULL, N'36115', N'Ehrenberg', 7, NULL, 0, 0, NULL, NULL),
(20, N'9000020', N'Baumschule Grün', N'Forstbaumschule Grün', N'Gartenweg 7', N'25421', N'Pinneberg', 15, NULL, 0, 0, NULL, NULL),
(21, N'9000021', N'Zaun Schäfer', N'Zaunbau Schäfer KG', NULL, N'61462', N'Königstein', 7, NULL, 0, 0, NULL, NULL),
(30, N'1010030', N'Krüger, Max', N'Max Krüger', N'Dorfstraße 9', N'17192', N'Federow', 8, 3, 0, 0, N'W6', 44),
(31, N'1010031', N'Böhm, Sören', N'Sören Böhm', NULL, N'17192', N'Speck', 8, 3, 0, 0, N'W5', NULL),
(40, N'1010101', N'Ahrens', N'Bauer Ahrens', NULL, N'17207', N'Röbel', 8, 3, 0, 1, NULL, NULL),
(41, N'1010102', N'Lüders', N'Familie Lüders', NULL, N'17207', N'Röbel', 8, 3, 0, 1, NULL, NULL),
(42, N'1020101', N'Nowak', N'Erbengemeinschaft Nowak', NULL, N'15907', N'Lübben', 4, 6, 0, 1, NULL, NULL),
(43, N'2010101', N'Möller', N'Möller, Karl', NULL, N'34320', N'Söhrewald', 7, 5, 0, 1, NULL, NULL),
(44, N'3010101', N'Übel', N'Übel, Gerd', NULL, N'76744', N'Büchelberg', 11, 8, 0, 1, NULL, NULL)
GO

UPDATE PERSONAL SET LEISTUNGSART = N'ST', KOSTENART = N'ST', KOSTENSTELLE = N'ST', OBJEKT = N'ST', HH_KAPITEL = N'ST',
    HH_TITEL = N'ST', ZUHLUNGSART = N'ST', ZUHLUNGSGRUND = N'ST', HH_HUL = N'ST', PRODUKT = N'ST', ZUSCHLAGSWERTE = N'ST',
    LOHNARTEN = N'ST', VERFAHREN = N'ST' WHERE ID_PERSONAL = 1
GO

UPDATE PERSONAL SET LEISTUNGSART = N'KO', KOSTENART = N'KO', KOSTENSTELLE = N'KO', PRODUKT = N'KO', LOHNARTEN = N'KO'
    WHERE ID_PERSONAL = 2
GO

UPDATE PERSONAL SET ABR3_ZUSATZ = N'Fuhrlohn wird vom Käufer getragen.' WHERE ID_PERSONAL = 13
GO

INSERT INTO VERTRAEGE (ID_VERTRAG, VERTRAG_NAME, ID_PERSONAL, ZUSATZTEXT) VALUES
(1, N'Rahmenvertrag 2024 Nadelstammholz', 10, N'Preisgleitung quartalsweise.'),
(2, N'Liefervertrag Zellstoff 2024', 12, NULL),
(3, N'Rahmenvertrag 2023 Nadelstammholz', 10, NULL)
GO
