-- Records as quillmar-forms stores them (a subset of the example form's columns), and the broken ones in
-- one query, as the README shows it. @form is the example form's path.
CREATE TABLE Orders (CustomerName TEXT, OrderDate TEXT, DeliveryTime TEXT, Quantity INTEGER, Discount REAL,
  UnitPrice TEXT, SubmittedAt TEXT);
INSERT INTO Orders VALUES
  ('Ann Lee', '2024-03-15', '09:30:00', 12, 5.0, '1250.5', '2024-03-15T10:00:00'),
  ('john smith', '2019-01-01', NULL, 600, 2.5, '9.999', '2024-03-15T10:01:00'),
  ('Bo Chen', '2024-03-16', '19:00:00', NULL, 12.125, '12', '2024-03-15T10:02:00');
.mode line
WITH checked AS (
  SELECT rowid,
    quillmar_check(@form, 'CustomerName', CustomerName) AS CustomerName,
    quillmar_check(@form, 'OrderDate', OrderDate) AS OrderDate,
    quillmar_check(@form, 'DeliveryTime', DeliveryTime) AS DeliveryTime,
    quillmar_check(@form, 'Quantity', Quantity) AS Quantity,
    quillmar_check(@form, 'Discount', Discount) AS Discount,
    quillmar_check(@form, 'UnitPrice', UnitPrice) AS UnitPrice
  FROM Orders)
SELECT * FROM checked
WHERE coalesce(CustomerName, OrderDate, DeliveryTime, Quantity, Discount, UnitPrice) IS NOT NULL;
SELECT quillmar_broken(@form, 'Quantity', Quantity, 'de_DE') AS bits FROM Orders WHERE rowid = 2;
SELECT quillmar_check(@form, 'Colour', 'red');
