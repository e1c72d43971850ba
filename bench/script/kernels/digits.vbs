Sub Main()
if not parentform.checkforevents then err.raise 1001
total = 0
if not parentform.checkforevents then err.raise 1001
for number = 1 to 400000
if not parentform.checkforevents then err.raise 1001
total = total + digits(number)
if not parentform.checkforevents then err.raise 1001
NEXT
if not parentform.checkforevents then err.raise 1001
parentform.PrintString total
if not parentform.checkforevents then err.raise 1001
End Sub

Function digits(number)
if not parentform.checkforevents then err.raise 1001
rest = number
if not parentform.checkforevents then err.raise 1001
sum = 0
if not parentform.checkforevents then err.raise 1001
WHILE rest > 0
if not parentform.checkforevents then err.raise 1001
sum = sum + rest mod 10
if not parentform.checkforevents then err.raise 1001
rest = rest \ 10
if not parentform.checkforevents then err.raise 1001
WEND
if not parentform.checkforevents then err.raise 1001
digits = sum
if not parentform.checkforevents then err.raise 1001
End Function
