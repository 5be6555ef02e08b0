-- Code lists and timber: species, grades, diameter classes, units, assortments, tariffs.

INSERT INTO STAMM_TABELLEN (ID_STRING, LABEL_GROUP, SHORTNAME, LONGNAME, DISABLE) VALUES
(1, N'MENGEN', N'Fm', N'Festmeter', NULL),
(2, N'MENGEN', N'Efm', N'Erntefestmeter ohne Rinde', NULL),
(3, N'MENGEN', N'Vfm', N'Vorratsfestmeter mit Rinde', 1),
(4, N'MENGEN', N'Rm', N'Raummeter', NULL),
(5, N'MENGEN', N'Srm', N'Schüttraummeter', NULL),
(6, N'MENGEN', N'St', N'Stück', NULL),
(7, N'MENGEN', N't lu', N'Tonne lufttrocken', NULL),
(8, N'MENGEN', N't at', N'Tonne absolut trocken', NULL),
(9, N'MENGEN', N'lfm', N'Laufender Meter', NULL),
(10, N'MENGEN', N'MWh', N'Megawattstunde', NULL),
(20, N'MEFVERF', N'MM', N'Mittenstärkenmessung', NULL),
(21, N'MEFVERF', N'SV', N'Stirnflächenverfahren', NULL),
(22, N'MEFVERF', N'SEK', N'Sektionsraummaß', NULL),
(23, N'MEFVERF', N'HV', N'Harvestervermessung', NULL),
(24, N'MEFVERF', N'WV', N'Werksvermessung', NULL),
(25, N'MEFVERF', N'GEW', N'Gewichtsvermessung', NULL),
(26, N'MEFVERF', N'FOTO', N'Fotooptische Polterung', NULL),
(30, N'EST', NULL, N'ohne Tarif', NULL),
(31, N'EST', N'1', N'EST Fichte schwach', NULL),
(32, N'EST', N'2', N'EST Fichte stark', NULL),
(33, N'EST', N'3', N'EST Buche', NULL),
(34, N'EST', N'4', N'EST Kiefer', NULL),
(40, N'ZUGANG', N'EIN', N'Einschlag', NULL),
(41, N'ZUGANG', N'KAUF', N'Zukauf', NULL),
(42, N'ZUGANG', N'UML', N'Umlagerung', NULL),
(43, N'ZUGANG', N'KORR', N'Mengenkorrektur', NULL),
(50, N'ABGANG', N'VERK', N'Verkauf', NULL),
(51, N'ABGANG', N'EIGEN', N'Eigenverbrauch', NULL),
(52, N'ABGANG', N'VERL', N'Verlust, Diebstahl', NULL),
(53, N'ABGANG', N'DEPUT', N'Deputat', NULL),
(54, N'ABGANG', N'SELBW', N'Selbstwerbung', NULL),
(60, N'RUCKE', N'SCHL', N'Schlepper mit Winde', NULL),
(61, N'RUCKE', N'FORW', N'Rückezug', NULL),
(62, N'RUCKE', N'PFERD', N'Pferderückung', NULL),
(63, N'RUCKE', N'SEIL', N'Seilkran', NULL),
(64, N'RUCKE', N'OHNE', N'ungerückt', NULL),
(70, N'ENTRIND', N'0', N'nicht entrindet', NULL),
(71, N'ENTRIND', N'1', N'grob entrindet', NULL),
(72, N'ENTRIND', N'2', N'weiß geschält', NULL),
(80, N'LOHNGRUND', N'100', N'Zeitlohn', NULL),
(81, N'LOHNGRUND', N'110', N'Leistungslohn', NULL),
(82, N'LOHNGRUND', N'200', N'Urlaub', NULL),
(83, N'LOHNGRUND', N'210', N'Krankheit', NULL),
(84, N'LOHNGRUND', N'300', N'Feiertag', NULL),
(85, N'LOHNGRUND', N'310', N'Schlechtwetter', 1),
(100, N'KUN_GR0', N'SÄGE', N'Sägewerke', NULL),
(101, N'KUN_GR0', N'PAP', N'Papier- und Zellstoffwerke', NULL),
(102, N'KUN_GR0', N'PLAT', N'Plattenwerke', NULL),
(103, N'KUN_GR0', N'HAND', N'Holzhandel', NULL),
(104, N'KUN_GR0', N'SELB', N'Selbstwerber', NULL),
(105, N'KUN_GR1', N'UNT', N'Unternehmer Einschlag', NULL),
(106, N'KUN_GR2', N'RÜCK', N'Rückeunternehmer', NULL),
(107, N'KUN_GR3', N'FUHR', N'Fuhrunternehmer', NULL),
(108, N'KUN_GR4', N'FBG', N'Forstbetriebsgemeinschaft', NULL),
(109, N'KUN_GR5', N'VERM', N'Vermarkter', NULL),
(110, N'KUN_GR6', N'BAHN', N'Bahnverladung', NULL),
(111, N'KUN_GR7', N'SPED', N'Spedition', NULL),
(112, N'KUN_GR8', N'SONST', N'Sonstige Abrechnung', NULL),
(113, N'KUN_WEI', N'JAGD', N'Jagdpächter', NULL),
(114, N'KUN_WEI', N'FISCH', N'Fischereipächter', NULL),
(115, N'KUN_ARB', N'WALDA', N'Waldarbeiter', NULL),
(116, N'KUN_ARB', N'AZUBI', N'Auszubildende', NULL),
(117, N'KUN_LIEF', N'BAUM', N'Baumschule', NULL),
(118, N'KUN_LIEF', N'TECH', N'Forsttechnik', NULL),
(119, N'KUN_MAN', N'LAND', N'Land', NULL),
(120, N'KUN_MAN', N'KOMM', N'Kommune', NULL),
(121, N'KUN_WAL', N'KLEIN', N'Kleinprivatwald', NULL),
(122, N'KUN_WAL', N'GROSS', N'Großprivatwald', NULL)
GO

INSERT INTO FARBE (FARBE, FARBE_LANG, DISABLE) VALUES
(N'RO', N'Rot', 0),
(N'BL', N'Blau', 0),
(N'GE', N'Gelb', 0),
(N'GR', N'Grün', 0),
(N'WE', N'Weiß', 0),
(N'OR', N'Orange', 0),
(N'SW', N'Schwarz', 1)
GO

INSERT INTO F1 (ID, SHORT, LONG, DISABLE) VALUES
(1, N'PEFC', N'Zertifiziert nach PEFC', NULL),
(2, N'FSC', N'Zertifiziert nach FSC', NULL),
(3, N'OHNE', N'Nicht zertifiziert', NULL)
GO

INSERT INTO F2 (ID, SHORT, LONG, DISABLE) VALUES
(1, N'FROST', N'Abfuhr nur bei Frost', NULL),
(2, N'TROCK', N'Abfuhr nur bei Trockenheit', NULL),
(3, N'SOFOR', N'Sofort abfahrbar', NULL)
GO

INSERT INTO SONDERMERKMAL (NUMMER, NAME, DISABLE) VALUES
(N'10', N'Naturschutzgebiet', NULL),
(N'20', N'Wasserschutzgebiet', NULL),
(N'30', N'Munitionsverdacht', NULL),
(N'40', N'Erholungswald', NULL),
(N'50', N'Saatgutbestand', 1)
GO

INSERT INTO ANLASSART (ID, NAME, TYPE_OF_RECH) VALUES
(1, N'Holzverkauf', N'R'),
(2, N'Brennholz', N'R'),
(3, N'Jagdpacht', N''),
(4, N'Wegebenutzung', N''),
(5, N'Schadenersatz', N'')
GO

INSERT INTO T_BUNDESLAND (SHORT, LONG, DISABLE) VALUES
(N'BW', N'Baden-Württemberg', 0),
(N'BY', N'Bayern', 0),
(N'BE', N'Berlin', 0),
(N'BB', N'Brandenburg', 0),
(N'HB', N'Bremen', 0),
(N'HH', N'Hamburg', 0),
(N'HE', N'Hessen', 0),
(N'MV', N'Mecklenburg-Vorpommern', 0),
(N'NI', N'Niedersachsen', 0),
(N'NW', N'Nordrhein-Westfalen', 0),
(N'RP', N'Rheinland-Pfalz', 0),
(N'SL', N'Saarland', 0),
(N'SN', N'Sachsen', 0),
(N'ST', N'Sachsen-Anhalt', 0),
(N'SH', N'Schleswig-Holstein', 0),
(N'TH', N'Thüringen', 0)
GO

INSERT INTO T_BEZIRK (ID, NUMMER, LONG) VALUES
(1, N'101', N'Bezirk Müritz'),
(2, N'102', N'Bezirk Spreewald'),
(3, N'201', N'Bezirk Söhre'),
(4, N'202', N'Bezirk Rhön'),
(5, N'301', N'Bezirk Bienwald')
GO

-- Groups of offices, services and costs; the groups of groups come first, since BEZEICH leads to them.
INSERT INTO BBF_GRUPPE (ID, LABEL_GROUP, NUMBER, NAME, BEZEICH) VALUES
(1, N'BEREICH_LEISTUNGSART', 1, N'Holzproduktion', NULL),
(2, N'BEREICH_LEISTUNGSART', 2, N'Waldpflege', NULL),
(3, N'BEREICH_LEISTUNGSART', 3, N'Verwaltung', NULL),
(4, N'BEREICH_KOSTENART', 1, N'Personalkosten', NULL),
(5, N'BEREICH_KOSTENART', 2, N'Sachkosten', NULL),
(6, N'BEREICH_RELTABLE', 1, N'Land', NULL),
(7, N'BEREICH_KOSTENSTELLE', 1, N'Forstbetrieb', NULL),
(8, N'BEREICH_PRODUKT', 1, N'Holz', NULL),
(10, N'LEISTUNGSART', 10, N'Holzernte', 1),
(11, N'LEISTUNGSART', 20, N'Kulturen', 2),
(12, N'LEISTUNGSART', 30, N'Waldschutz', 2),
(13, N'LEISTUNGSART', 40, N'Wegebau', NULL),
(14, N'LEISTUNGSART', 90, N'Betriebsleitung', 3),
(20, N'KOSTENART', 10, N'Löhne', 4),
(21, N'KOSTENART', 20, N'Material', 5),
(22, N'KOSTENART', 30, N'Unternehmer', 5),
(30, N'KOSTENSTELLE', 10, N'Reviere', 7),
(31, N'KOSTENSTELLE', 20, N'Maschinen', 7),
(40, N'OBJEKT', 10, N'Gebäude', NULL),
(41, N'OBJEKT', 20, N'Fahrzeuge', NULL),
(50, N'PRODUKT', 10, N'Rohholz', 8),
(51, N'PRODUKT', 20, N'Schutz und Erholung', NULL),
(60, N'RELTABLE', 1, N'Staatliche Forstämter', 6),
(61, N'RELTABLE', 2, N'Kommunale Forstämter', NULL),
(70, N'ZUSCHLAGSWERTE', 10, N'Erschwernis', NULL),
(80, N'LOHNARTEN', 10, N'Grundlohn', NULL),
(81, N'LOHNARTEN', 20, N'Zuschläge', NULL),
(90, N'VERFAHREN', 10, N'Motormanuell', NULL),
(91, N'VERFAHREN', 20, N'Vollmechanisiert', NULL),
(95, N'MASCHINE', 10, N'Harvester', NULL)
GO

INSERT INTO RELTABLE (ID, RELTABLE_ID, KURZNAME, LANGNAME, GRUPPE, DISABLE, ID_ACCESS_LEVELS) VALUES
(1, 1, N'EIFEL', N'Forstamt Eifel', 60, NULL, NULL),
(2, 1, N'HARZ', N'Forstamt Harz', 60, NULL, NULL),
(3, 1, N'MÜRITZ', N'Forstamt Müritz', 60, NULL, NULL),
(4, 1, N'RHÖN', N'Forstamt Rhön', 60, NULL, NULL),
(5, 1, N'SÖHRE', N'Forstamt Söhre', 60, NULL, NULL),
(6, 1, N'SPREE', N'Forstamt Spreewald', 60, NULL, NULL),
(7, 1, N'TAUNUS', N'Forstamt Taunus', 60, NULL, NULL),
(8, 1, N'WÖRTH', N'Forstamt Bienwald', 61, NULL, 6),
(9, 1, N'ALT', N'Forstamt Altenau (aufgelöst)', NULL, 1, NULL),
(20, 2, N'R01', N'Revier Mühlbach', NULL, NULL, NULL),
(21, 2, N'R02', N'Revier Birkenhain', NULL, NULL, 2),
(22, 2, N'R03', N'Revier Grünau', NULL, NULL, 3),
(23, 2, N'R04', N'Revier Hochwald', NULL, NULL, NULL),
(30, 3, N'BT1', N'Betriebsteil Nord', NULL, NULL, NULL),
(31, 3, N'BT2', N'Betriebsteil Süd', NULL, NULL, NULL),
(40, 4, N'MWALD', N'Müritzer Großwald', NULL, NULL, NULL),
(41, 4, N'BWALD', N'Bienwald', NULL, NULL, NULL),
(50, 5, N'RÖBEL', N'Gemeinde Röbel', NULL, NULL, NULL),
(51, 5, N'LÜBBEN', N'Stadt Lübben', NULL, NULL, NULL),
(60, 6, N'MSE', N'Landkreis Mecklenburgische Seenplatte', NULL, NULL, NULL),
(61, 6, N'LDS', N'Landkreis Dahme-Spreewald', NULL, NULL, NULL),
(70, 7, N'KS', N'Regierungsbezirk Kassel', NULL, NULL, NULL),
(80, 8, N'OWR', N'Wuchsgebiet Oberrhein', NULL, NULL, NULL),
(90, 9, N'LP17', N'Lagerplatz 17 Bahnhof', NULL, NULL, NULL),
(100, 10, N'VK1', N'Verkaufsgebiet Nord', NULL, NULL, NULL)
GO

-- HAGR1: price group, HAGR2: conifer or broadleaf, HAGR3: species group of the inventory.
INSERT INTO HOLZART (ID, HA, HA_LANG, HAGR1, HAGR2, HAGR3, ZUORD_MSZ, DISABLE) VALUES
(1, N'FI', N'Fichte', N'FI', N'NH', N'FICHTE', 10, NULL),
(2, N'TA', N'Weißtanne', N'FI', N'NH', N'FICHTE', 11, NULL),
(3, N'DGL', N'Douglasie', N'DGL', N'NH', N'FICHTE', 12, NULL),
(4, N'KI', N'Waldkiefer', N'KI', N'NH', N'KIEFER', 20, NULL),
(5, N'SKI', N'Schwarzkiefer', N'KI', N'NH', N'KIEFER', 21, NULL),
(6, N'LÄ', N'Europäische Lärche', N'LÄ', N'NH', N'KIEFER', 22, NULL),
(7, N'JLÄ', N'Japanlärche', N'LÄ', N'NH', N'KIEFER', 23, NULL),
(8, N'BU', N'Rotbuche', N'BU', N'LH', N'BUCHE', 30, NULL),
(9, N'HBU', N'Hainbuche', N'BU', N'LH', N'BUCHE', 31, NULL),
(10, N'EI', N'Stiel- und Traubeneiche', N'EI', N'LH', N'EICHE', 40, NULL),
(11, N'REI', N'Roteiche', N'EI', N'LH', N'EICHE', 41, NULL),
(12, N'ES', N'Esche', N'EDL', N'LH', N'ALH', 50, NULL),
(13, N'AH', N'Bergahorn', N'EDL', N'LH', N'ALH', 51, NULL),
(14, N'KIR', N'Vogelkirsche', N'EDL', N'LH', N'ALH', 52, NULL),
(15, N'EB', N'Eberesche', N'SLB', N'LH', N'ALN', 60, NULL),
(16, N'BI', N'Birke', N'SLB', N'LH', N'ALN', 61, NULL),
(17, N'ER', N'Schwarzerle', N'SLB', N'LH', N'ALN', 62, NULL),
(18, N'PA', N'Pappel', N'SLB', N'LH', N'ALN', 63, NULL),
(19, N'UL', N'Ulme', N'EDL', N'LH', N'ALH', 53, 1)
GO

INSERT INTO GUETEKLASSE (ID, GKL, GKL_LANG, DISABLE) VALUES
(1, N'A', N'Ausgezeichnete Qualität', NULL),
(2, N'B', N'Normale Qualität', NULL),
(3, N'C', N'Gewöhnliche Qualität', NULL),
(4, N'D', N'Noch sägefähig', NULL),
(5, N'BC', N'Mischsortiment B und C', NULL),
(6, N'IN', N'Industrieholz normal', NULL),
(7, N'IF', N'Industrieholz fehlerhaft', NULL),
(8, N'IK', N'Industrieholz krank', NULL),
(9, N'E', N'Sonderklasse (alt)', 1)
GO

INSERT INTO STKL (ID, KURZ, STKL, DM_VON, DM_BIS, DISABLE) VALUES
(1, N'L0', N'L0', 7, 9.9, NULL),
(2, N'1a', N'1a', 10, 14.9, NULL),
(3, N'1b', N'1b', 15, 19.9, NULL),
(4, N'2a', N'2a', 20, 24.9, NULL),
(5, N'2b', N'2b', 25, 29.9, NULL),
(6, N'3a', N'3a', 30, 34.9, NULL),
(7, N'3b', N'3b', 35, 39.9, NULL),
(8, N'4', N'4', 40, 49.9, NULL),
(9, N'5', N'5', 50, 59.9, NULL),
(10, N'6', N'6', 60, NULL, NULL)
GO

INSERT INTO KUBATURKLASSE (ID, KKLASSE, TEXT) VALUES
(1, 1, N'bis 0,5 Fm'),
(2, 2, N'0,5 bis 1,0 Fm'),
(3, 3, N'1,0 bis 2,0 Fm'),
(4, 4, N'über 2,0 Fm')
GO

INSERT INTO RINDENKENNZ (ID_RINDENKENNZ, RINDENKENNZ, RINDENKZ_LANG, CALCULATION, RINDEPROZENT, DISABLE) VALUES
(1, N'oR', N'ohne Rinde gemessen', NULL, NULL, NULL),
(2, N'mR', N'mit Rinde, Abzug in cm', 1, 0, NULL),
(3, N'iR', N'mit Rinde, Abzug in Prozent', 2, 1, NULL),
(4, N'gR', N'geschält', NULL, NULL, 1)
GO

INSERT INTO RINDENABZUG (ID, RINDENTABELLE, RINDEPROZENT, HA, DM_VON, DM_BIS, ABZUG, GUELTIG_BIS) VALUES
(1, N'A', NULL, N'FI', 7, 26, 1, '20301231'),
(2, N'A', NULL, N'FI', 27, 50, 2, '20301231'),
(3, N'A', NULL, N'FI', 51, 99, 3, '20301231'),
(4, N'A', NULL, N'KI', 7, 22, 1, '20301231'),
(5, N'A', NULL, N'KI', 23, 37, 2, '20301231'),
(6, N'A', NULL, N'KI', 38, 99, 4, '20301231'),
(7, N'A', NULL, N'BU', 7, 40, 1, '20301231'),
(8, N'A', NULL, N'EI', 7, 99, 3, NULL),
(9, N'B', 1, N'FI', 7, 99, 10.5, '20241231'),
(10, N'B', 1, N'LÄ', 7, 99, 17.5, NULL)
GO

-- The comma lists hold keys of species, grades, diameter classes, units and bark codes; NULL: all of them.
INSERT INTO HOLZSORTE (ID, HS, HS_LANG, HSGR1, HSGR2, RUND, SCHICHT, WERK, STANG, GEWICHT, NH, SHOW_ORDER, ZUORD_MSZ,
    STKL_GRUP, RM_UFA, ATO_UFA, LUT_UFA, ID_MENGEN, ID_MEFVERF, HOLZART, GKL, STKL, MENGENEINHEIT, RINDENKENNZ) VALUES
(1, N'L', N'Stammholz lang', N'STH', N'LANG', 1, 0, 0, 0, 0, 0, 10, 1, N'L', NULL, NULL, NULL, 2, 20, NULL, N'1,2,3,4', NULL, N'1,2', N'1,2'),
(2, N'LAS', N'Stammholzabschnitte', N'STH', N'KURZ', 1, 0, 0, 0, 0, 0, 20, 2, N'L', NULL, NULL, NULL, 2, 23, NULL, N'2,3,4,5', NULL, N'1,2', NULL),
(3, N'LAS4', N'Abschnitte 4 m', N'STH', N'KURZ', 1, 0, 0, 0, 0, 1, 21, 2, N'L', NULL, NULL, NULL, 2, 23, N'1,2,3,4', N'2,3', N'3,4,5,6', N'1,2', NULL),
(4, N'LAS5', N'Abschnitte 5 m', N'STH', N'KURZ', 1, 0, 0, 0, 0, 1, 22, 2, N'L', NULL, NULL, NULL, 2, 23, N'1,2,3,4', N'2,3', N'4,5,6,7', N'1,2', NULL),
(5, N'FUR', N'Furnierholz', N'STH', N'WERT', 1, 0, 0, 0, 0, 0, 5, 3, N'L', NULL, NULL, NULL, 2, 20, N'8,10,12,13,14', N'1', N'8,9,10', N'2', N'1'),
(6, N'SW', N'Schwellenholz', N'STH', N'KURZ', 1, 0, 0, 0, 0, 0, 30, 4, N'L', NULL, NULL, NULL, 2, 20, N'8,10', N'3', N'6,7,8', N'2', NULL),
(7, N'PZ', N'Palettenholz', N'IND', N'KURZ', 1, 1, 0, 0, 0, 0, 40, 5, NULL, 0.7, NULL, NULL, 4, 22, NULL, N'4', N'2,3,4', N'2,4', NULL),
(8, N'IL', N'Industrieholz lang', N'IND', N'LANG', 1, 0, 1, 0, 0, 0, 50, 6, NULL, NULL, NULL, NULL, 2, 24, NULL, N'6,7,8', NULL, N'2,8', N'2'),
(9, N'IS', N'Industrieholz Schicht', N'IND', N'KURZ', 0, 1, 1, 0, 0, 0, 60, 7, NULL, 0.7, 0.43, 0.62, 4, 22, NULL, N'6,7', NULL, N'4,7,8', N'2'),
(10, N'BL', N'Brennholz lang', N'ENE', N'LANG', 1, 0, 0, 0, 0, 0, 70, 8, NULL, NULL, NULL, NULL, 2, 20, N'8,9,10,12,13,16', NULL, NULL, N'1,2', NULL),
(11, N'BS', N'Brennholz Schicht', N'ENE', N'KURZ', 0, 1, 0, 0, 0, 0, 80, 9, NULL, 0.7, NULL, NULL, 4, 22, NULL, NULL, NULL, N'4', NULL),
(12, N'HAS', N'Waldhackschnitzel', N'ENE', N'GUT', 0, 0, 0, 0, 1, 0, 90, 10, NULL, 2.5, 0.4, 0.6, 5, 25, NULL, NULL, NULL, N'5,7,8,10', NULL),
(13, N'ST1', N'Derbstangen', N'STG', N'STANGE', 0, 0, 0, 1, 0, 1, 100, 11, NULL, NULL, NULL, NULL, 6, NULL, N'1,2,6', NULL, N'1,2', N'6', NULL),
(14, N'ZP', N'Zaunpfähle', N'STG', N'STANGE', 0, 0, 0, 1, 0, 0, 110, 12, NULL, NULL, NULL, NULL, 6, NULL, N'10', NULL, NULL, N'6', NULL)
GO

UPDATE HOLZSORTE SET BASIS = N'LAS', L_VON = 4, L_BIS = 4.5, DM_VON = 15, DM_BIS = 35 WHERE HS = N'LAS4'
GO

UPDATE HOLZSORTE SET BASIS = N'LAS', L_VON = 5, L_BIS = 5.5, DM_VON = 20, DM_BIS = 40 WHERE HS = N'LAS5'
GO

UPDATE HOLZSORTE SET FAKTOR_HEIZWERT = 4.5, FAKTOR_WASSER_REDUKTION = 0.65, UFAKT_MENGE_MWH = 0.8 WHERE HS = N'HAS'
GO

INSERT INTO DSART (ID, NAME) VALUES
(1, N'Einzelstamm'),
(2, N'Polter'),
(3, N'Schicht'),
(4, N'Gewicht')
GO

INSERT INTO U_FAKT (ID_DSART, ID_HA, ID_HS, ID_ME, ID_STKL, ID_GKL, ID_RINDENKENNZ, LANGE_VON, LANGE_BIS, RM_UFA, ATO_UFA,
    LUT_UFA, STK100_UFA, ORDERBY) VALUES
(3, 1, 9, 4, NULL, NULL, NULL, 2, 2, 0.7, 0.41, 0.6, NULL, 10),
(3, 8, 9, 4, NULL, NULL, NULL, 1, 2, 0.7, 0.56, 0.75, NULL, 20),
(3, 4, 9, 4, NULL, 6, 2, 2, 3, 0.7, 0.43, 0.63, NULL, 30),
(2, NULL, 13, 6, 1, NULL, NULL, 4, 9, NULL, NULL, NULL, 4.5, 40),
(4, NULL, 12, 5, NULL, NULL, NULL, NULL, NULL, 2.5, 0.4, 0.6, NULL, 50)
GO

INSERT INTO NUTZUNGSART (ID, NA, NA_LANG, NA_GROUP, ALLOW_HOLZ, DISABLE) VALUES
(1, N'EN', N'Endnutzung', N'HN', 1, NULL),
(2, N'VN', N'Vornutzung', N'VN', 1, NULL),
(3, N'JP', N'Jungbestandspflege', N'VN', 1, NULL),
(4, N'LH', N'Läuterung mit Holzanfall', N'VN', 1, NULL),
(5, N'ZN', N'Zwangsnutzung', N'ZN', 1, NULL),
(6, N'KE', N'Kein Holz, Pflege', N'PF', 0, NULL)
GO

INSERT INTO KALAMITAET (ID, KA, KA_LANG, DISABLE) VALUES
(1, N'ST', N'Sturmwurf', NULL),
(2, N'SB', N'Schneebruch', NULL),
(3, N'BK', N'Borkenkäfer', NULL),
(4, N'DÜ', N'Dürre', NULL),
(5, N'ET', N'Eschentriebsterben', NULL),
(6, N'BR', N'Waldbrand', NULL)
GO

INSERT INTO LISTENART (LISTENART, TEXT, DISABLE) VALUES
(1, N'Stammholzliste', NULL),
(2, N'Schichtholzliste', NULL),
(3, N'Werksvermessung', NULL),
(4, N'Selbstwerberliste', NULL),
(5, N'Inventurliste', 1)
GO

INSERT INTO BUCHNR (BUCHNR_ID, BUCHUNGSTEXT, KONTO) VALUES
(1, N'Erlöse Stammholz', N'8100'),
(2, N'Erlöse Industrieholz', N'8110'),
(3, N'Erlöse Brennholz', N'8120'),
(4, N'Erlöse Nebennutzungen', N'8200')
GO

INSERT INTO RECHNUNGSART (RART_ID, RECHNUNGSART, KURZ, BUCHNR, KONTO, MWST, SKONTO, ZAHLUNGSZIEL, DISABLE) VALUES
(1, N'Rechnung Holz', N'RH', N'Erlöse Stammholz', N'8100', 5.5, 2, 30, NULL),
(2, N'Gutschrift', N'GU', N'Erlöse Stammholz', N'8100', 5.5, NULL, 14, NULL),
(3, N'Brennholzrechnung', N'BH', N'Erlöse Brennholz', N'8120', 7, NULL, 14, NULL),
(4, N'Selbstwerberrechnung', N'SR', N'Erlöse Brennholz', N'8120', 7, NULL, 0, NULL),
(5, N'Proformarechnung', N'PF', NULL, NULL, NULL, NULL, NULL, 1)
GO

INSERT INTO PREISE_TARIFE (ID_PREISTABNR, RART_ID, HS, HA, GKL, STKL, PREIS) VALUES
(1, 1, N'LAS', N'FI', N'BC', N'2b', 98.5),
(2, 2, N'L', N'BU', N'B', N'4', 92),
(3, 3, N'BL', N'BU', NULL, NULL, 65),
(4, 4, N'BS', NULL, NULL, NULL, 28.5)
GO

INSERT INTO TARIFTABELLE (DSART, HS_GRUPPE, HA_GRUPPE, EST, RINDENKENNZ, RUCKE, DM, STKL, LANGEKURZVON, LANGEKURZBIS,
    LANGELANGVON, LANGELANGBIS, AZ, MZ, MENGEN) VALUES
(N'Einzelstamm', N'STH', N'FI', N'1', N'mR', N'SCHL', 22.5, N'2a', 3, 6, 7, 20, 14.2, 6.1, N'Efm'),
(N'Einzelstamm', N'STH', N'BU', N'3', N'mR', N'SCHL', 45, N'4', 3, 6, 7, 18, 9.8, 4.4, N'Efm'),
(N'Polter', N'IND', N'KI', N'4', N'mR', N'FORW', 15, N'1b', 2, 3, 4, 8, 21, 9.5, N'Efm')
GO

INSERT INTO GEBUEHREN_WALDKONSULTING (FBG_NUMMER, HS, EINHEIT_EINKAUF, GEBUEHR_EINKAUF, EINHEIT_VERKAUF, GEBUEHR_VERKAUF,
    GUELTIG_BIS) VALUES
(N'4711', N'L', N'Fm', 1.5, N'Fm', 2, '20301231'),
(N'4711', N'LAS', N'Fm', 1.25, N'Fm', 1.75, '20301231'),
(N'4711', N'IS', N'Rm', 0.8, N'Rm', 1.1, '20241231'),
(N'4712', N'L', N'Fm', 1.6, N'Fm', 2.1, '20301231')
GO
