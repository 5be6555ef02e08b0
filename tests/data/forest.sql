-- A small forest for tests. Keys are given by the order of the rows: stand 17 is Nord/3, stand 18 Nord/3/a.
INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE, TEXT_VALUE) VALUES
('WALDORTLEVEL', 6, NULL)
GO
INSERT INTO BB_STRUKTUREN (ID, DSW_STRUKTUR) VALUES (1, 'STAAT')
GO
INSERT INTO ACCESS_LEVELS (ID, NAME, ACCESS_LEVELS, ADR_DSW, ID_BB_STRUKTUREN) VALUES
(1, 'Staatswald', '0100', 'BB|01|00|00', 1),
(2, 'Revier Birkenhain', '0101', 'BB|01|01|00', 1),
(3, 'Revier Grünau', '0102', NULL, NULL),
(4, 'Kommunalwald', '0200', NULL, NULL)
GO
INSERT INTO HOLZART (ID, HA, HA_LANG) VALUES
(1, 'BU', 'Buche'), (2, 'EI', 'Eiche'), (3, 'FI', 'Fichte'), (4, 'KI', 'Kiefer')
GO
INSERT INTO WALDORT (WO1, WO2, WO3, WO4, WO5, WO6, ID_ACCESS_LEVELS, DISABLE, ZENTRALE, LANGNAME, FLAECHE, HAUPT_HA, AL_TER, GEMARKUNG, FLURSTUECK, PARZELLE) VALUES
('Nord', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'Nord', 120.5, NULL, NULL, NULL, NULL, NULL),
('Nord', '1', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'Nord 1', 40.25, 'FI', 85, 'Birkenhain', '12/3', 'A'),
('Nord', '1', 'a', NULL, NULL, NULL, NULL, NULL, NULL, 'Nord 1 a', 12.3456, 'BU', 60.5, 'Birkenhain', '12/4', 'B'),
('Nord', '1', 'a', '1', NULL, NULL, NULL, NULL, NULL, 'Nord 1 a 1', 1.5, 'BU', 61, NULL, NULL, NULL),
('Nord', '1', 'a', '1', 'x', NULL, NULL, NULL, NULL, 'Nord 1 a 1 x', 0.75, 'EI', 90, NULL, NULL, NULL),
('Nord', '1', 'a', '1', 'x', '9', NULL, NULL, NULL, 'Nord 1 a 1 x 9', 0.25, 'EI', 91, NULL, NULL, NULL),
('Nord', '1', 'b', NULL, NULL, NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
('Nord', '2', NULL, NULL, NULL, NULL, NULL, NULL, 1, 'Nord 2 zentral', 30, 'KI', 40, NULL, NULL, NULL),
('Nord', '2', 'a', NULL, NULL, NULL, NULL, 1, NULL, 'Nord 2 a gesperrt', 3, 'KI', 41, NULL, NULL, NULL),
('Süd', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'Süd', 80, NULL, NULL, NULL, NULL, NULL),
('Süd', '1', NULL, NULL, NULL, NULL, 1, NULL, NULL, 'Süd 1 des Staatswalds', 20, 'FI', 70, NULL, NULL, NULL),
('Süd', '2', NULL, NULL, NULL, NULL, 2, NULL, NULL, 'Süd 2 des Reviers', 21, 'FI', 71, NULL, NULL, NULL),
('Süd', NULL, '7', NULL, NULL, NULL, NULL, NULL, NULL, 'Lücke', 1, NULL, NULL, NULL, NULL, NULL),
('Ost', '5', 'c', NULL, NULL, NULL, NULL, NULL, NULL, 'Ost 5 c ohne Eltern', 5, 'BU', 50, NULL, NULL, NULL),
(NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'ohne Schlüssel', 9, NULL, NULL, NULL, NULL, NULL),
('West ', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'West mit Leerzeichen', 10, NULL, NULL, NULL, NULL, NULL),
('Nord', '3', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 'Nord 3', 17.5, 'FI', 55, NULL, NULL, NULL),
('Nord', '3', 'a', NULL, NULL, NULL, NULL, NULL, NULL, 'Nord 3 a', 8.5, 'FI', 56, NULL, NULL, NULL),
('Nord', '3', 'a', NULL, NULL, NULL, NULL, NULL, NULL, 'Nord 3 a, zweite Zeile', 8.5, 'FI', 56, NULL, NULL, NULL)
GO
INSERT INTO PERSONAL (ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME) VALUES
(1, '101', 'Müller', 'Müller, Anna'), (2, '102', 'Forst GmbH', 'Forst GmbH'), (3, '103', 'Sägewerk', 'Sägewerk AG')
GO
INSERT INTO LOGS (ID_LOG, LISTE) VALUES (1, '2024-101'), (2, '2024-102')
GO
