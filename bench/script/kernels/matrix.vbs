Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM a(119, 119)
if not parentform.checkforevents then err.raise 1001
DIM b(119, 119)
if not parentform.checkforevents then err.raise 1001
DIM c(119, 119)
if not parentform.checkforevents then err.raise 1001
for i = 0 to 119
if not parentform.checkforevents then err.raise 1001
for j = 0 to 119
if not parentform.checkforevents then err.raise 1001
a(i, j) = i + j
if not parentform.checkforevents then err.raise 1001
b(i, j) = i - j
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
for i = 0 to 119
if not parentform.checkforevents then err.raise 1001
for j = 0 to 119
if not parentform.checkforevents then err.raise 1001
sum = 0
if not parentform.checkforevents then err.raise 1001
for k = 0 to 119
if not parentform.checkforevents then err.raise 1001
sum = sum + a(i, k) * b(k, j) * 0.5
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
c(i, j) = sum
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
parentform.PrintString c(7, 9) + c(100, 3)
if not parentform.checkforevents then err.raise 1001
End Sub
